#include "workbench/engine/execution/database.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <future>

#include "workbench/acceptance/result_rows.h"
#include "workbench/engine/execution/script.h"

namespace kebu::engine {
namespace {

class DatabaseFile : public testing::Test {
 public:
  DatabaseFile(const DatabaseFile&) = delete;
  DatabaseFile& operator=(const DatabaseFile&) = delete;

 protected:
  DatabaseFile() { std::filesystem::create_directories(folder_); }
  ~DatabaseFile() override { std::filesystem::remove_all(folder_); }
  std::string path(const std::string& name) const { return (folder_ / name).string(); }

 private:
  std::filesystem::path folder_ =
      std::filesystem::path(testing::TempDir()) /
      ("kebu_" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name()));
};

std::string openError(const std::string& path) {
  try {
    Database::openFile(path);
  } catch (const RuntimeError& error) {
    return error.description();
  }
  return "";
}

TEST_F(DatabaseFile, ReopensWithEverythingThatWasDefined) {
  {
    Session maker(Database::createFile(path("a.db")));
    runScript(maker, R"(
CREATE TABLE T (ID int IDENTITY(10,1) PRIMARY KEY, P decimal(9,2) NOT NULL DEFAULT 1.5, C varchar(3))
GO
CREATE VIEW V AS SELECT ID, P * 2 AS D FROM T
go
CREATE PROCEDURE SP @n int = 3 AS INSERT INTO T (C) VALUES (CAST(@n AS varchar))
GO
EXEC SP
SELECT * INTO ##gone FROM T
)");
    EXPECT_THROW(Database::createFile(path("a.db")), RuntimeError);
  }
  Session session(Database::openFile(path("a.db")));
  EXPECT_EQ(shown(session.execute("EXEC SP 4 SELECT * FROM T SELECT D FROM V WHERE ID = 11")),
            "10|1.50|3\n11|1.50|4\n3.00\n");
  EXPECT_THROW(session.execute("INSERT INTO T (C) VALUES ('long')"), SqlError);
  EXPECT_THROW(session.execute("SELECT * FROM ##gone"), SqlError);
}

TEST_F(DatabaseFile, RefusesWhatIsNoDatabaseOfOurs) {
  EXPECT_NE(openError(path("missing.db")).find("no such"), std::string::npos);
  std::ofstream(path("text.db")) << std::string(2000, 'x');
  EXPECT_NE(openError(path("text.db")).find("not a database"), std::string::npos);
  std::ofstream(path("empty.db")) << "";
  EXPECT_NE(openError(path("empty.db")).find("not a database of the workbench"), std::string::npos);
  EXPECT_NE(openError(path("")).find("no such"), std::string::npos);
}

/// Runs SQL of SQLite on a file, beside the engine.
void change(const std::string& path, const char* sql) {
  sqlite3* raw = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &raw), SQLITE_OK);
  const Handle handle(raw);
  ASSERT_EQ(sqlite3_exec(raw, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(raw);
}

TEST_F(DatabaseFile, TellsThatItsCatalogueIsDamaged) {
  Database::createFile(path("a.db"));
  change(path("a.db"), "DROP TABLE kb_catalog");
  EXPECT_NE(openError(path("a.db")).find("no such table"), std::string::npos);
  change(path("a.db"),
         "CREATE TABLE kb_catalog (id, kind, name, text); INSERT INTO kb_catalog VALUES (1, 'U', "
         "'T', NULL)");
  EXPECT_NE(openError(path("a.db")).find("damaged"), std::string::npos);
  change(path("a.db"), "UPDATE kb_catalog SET text = 'CREATE TABL'");
  EXPECT_NE(openError(path("a.db")).find("TABL"), std::string::npos);
  change(path("a.db"),
         "UPDATE kb_catalog SET text = 'CREATE TABLE T (A int, B int)'; CREATE TABLE T (A, C)");
  EXPECT_NE(openError(path("a.db")).find("table T is not stored as its catalogue says"),
            std::string::npos);
}

TEST_F(DatabaseFile, TellsThatAValueIsDamaged) {
  Session(Database::createFile(path("a.db")))
      .execute("CREATE TABLE T (C decimal(28,5) NULL) INSERT INTO T VALUES (1)");
  change(path("a.db"), "UPDATE T SET C = x'80'");
  Session session(Database::openFile(path("a.db")));
  for (const char* query : {"SELECT C FROM T", "SELECT C + 1 FROM T"}) {
    try {
      session.execute(query);
      ADD_FAILURE() << query;
    } catch (const SqlError& error) {
      EXPECT_EQ(error.nativeError(), 824) << query;
    }
  }
}

TEST_F(DatabaseFile, IsSharedByProgramsThatWaitForEachOther) {
  Session(Database::createFile(path("a.db"))).execute("CREATE TABLE T (A int)");
  constexpr int rows = 40;
  const auto work = [&] {
    Session session(Database::openFile(path("a.db")));
    for (int i = 0; i < rows; ++i) {
      session.execute("INSERT INTO T SELECT COUNT(*) FROM T");
      session.execute(
          "MERGE INTO T USING (SELECT 1 AS X) S ON T.A = -1 WHEN NOT MATCHED THEN INSERT (A) "
          "VALUES (S.X);");
    }
  };
  auto other = std::async(std::launch::async, work);
  EXPECT_NO_THROW(work());
  EXPECT_NO_THROW(other.get());
  Session session(Database::openFile(path("a.db")));
  EXPECT_EQ(shown(session.execute("SELECT COUNT(*) FROM T")), "160\n");
}

TEST(Sessions, ShareGlobalTemporaryTablesUntilTheMakerEnds) {
  const auto database = Database::createInMemory();
  Session other(database);
  {
    Session maker(database);
    maker.execute("SELECT 1 AS A INTO ##G SELECT 2 AS A INTO #L");
    EXPECT_EQ(shown(other.execute("SELECT A FROM tempdb..##G")), "1\n");
    EXPECT_THROW(other.execute("SELECT A FROM #L"), SqlError);
    other.execute("SELECT 3 AS A INTO #L");
    EXPECT_EQ(shown(maker.execute("SELECT A FROM #L")), "2\n");
  }
  EXPECT_EQ(shown(other.execute("SELECT OBJECT_ID('tempdb..##G'), A FROM #L")), "NULL|3\n");
}

TEST(Sessions, GiveTheTypesOfSelectInto) {
  Session session(Database::createInMemory());
  session.execute(
      "SELECT CAST(1 AS decimal(9,2)) AS A, 'abc' AS B, CAST(NULL AS datetime) AS C, CAST(1 AS "
      "bit) AS D, "
      "CAST(7 AS tinyint) AS E, NEWID() AS F, 2 AS G, CAST(5 AS bigint) AS H INTO ##T");
  const auto result = session.execute("SELECT * FROM ##T").at(0);
  const auto& columns = result.columns;
  EXPECT_EQ(columns[0].type, SqlType::decimal(9, 2));
  EXPECT_EQ(columns[1].type, SqlType::text(3));
  EXPECT_EQ(columns[2].type.kind, TypeKind::DateTime);
  const auto& row = result.rows.at(0);
  EXPECT_EQ(row[0], Value(Decimal::scaled(100, 2)));
  EXPECT_TRUE(row[2].isNull());
  EXPECT_EQ(row[3], Value(true));
  EXPECT_EQ(row[4], Value(std::int16_t{7}));
  EXPECT_TRUE(row[5].as<std::string>().starts_with('{') && row[5].as<std::string>().size() == 38);
  EXPECT_EQ(row[6], Value(std::int32_t{2}));
  EXPECT_EQ(row[7], Value(Decimal(5)));
}

TEST(Sessions, KeepPlansApartWhereLiteralsBelongToTheForm) {
  Session session(Database::createInMemory());
  session.execute("CREATE TABLE T (A int, B varchar(4))");
  for (const char* row : {"(1, 'a')", "(22, 'bb')", "(333, 'cccc')"})
    session.execute(std::string("INSERT INTO T VALUES ") + row);
  EXPECT_EQ(shown(session.execute("SELECT A FROM T ORDER BY 1 DESC")), "333\n22\n1\n");
  EXPECT_EQ(shown(session.execute("SELECT A, B FROM T ORDER BY 2 DESC")), "333|cccc\n22|bb\n1|a\n");
  EXPECT_EQ(shown(session.execute("SELECT CAST(A AS varchar(1)), B FROM T WHERE A = 1")), "1|a\n");
  EXPECT_EQ(shown(session.execute("SELECT CAST(B AS varchar(2)) FROM T WHERE A = 333")), "cc\n");
  EXPECT_EQ(shown(session.execute("SELECT TOP 1 B FROM T WHERE A > 1 SELECT 'x' AS L")), "bb\nx\n");
  EXPECT_EQ(session.execute("SELECT 'xyz' AS L").at(0).columns[0].type.size, 3);
  EXPECT_EQ(session.execute("SELECT 'longer' AS L").at(0).columns[0].type.size, 6);
}

TEST(Script, NamesTheLineOfTheFailingBatch) {
  Session session(Database::createInMemory());
  try {
    runScript(session, "SELECT 1\nGO\n\n-- the second\nSELECT X\nGO\n");
    FAIL() << "no error";
  } catch (const SqlError& error) {
    EXPECT_EQ(error.nativeError(), 207);
    EXPECT_NE(error.description().find("line 4"), std::string::npos) << error.description();
  }
}

}  // namespace
}  // namespace kebu::engine
