#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

namespace {

namespace fs = std::filesystem;

struct Outcome {
  int exitCode = -1;
  std::string out;
  std::string err;
};

class ProgramTest : public testing::Test {
 protected:
  ProgramTest() {
    std::string pattern = (fs::temp_directory_path() / "workbench_XXXXXX").string();
    folder_ = mkdtemp(pattern.data());
  }
  ~ProgramTest() override { fs::remove_all(folder_); }

  std::string path(const std::string& name) const { return (folder_ / name).string(); }
  std::string write(const std::string& name, const std::string& text) const {
    std::ofstream(path(name), std::ios::binary) << text;
    return path(name);
  }
  static std::string read(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  Outcome run(const std::string& arguments) const {
    const std::string command =
        std::string(WORKBENCH_PROGRAM) + " " + arguments + " >" + path("out") + " 2>" + path("err");
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, read(path("out")), read(path("err"))};
  }
  Outcome play(const std::string& scenario, const std::string& options = {}) const {
    return run("play " + write("x.scenario", scenario) + " " + options);
  }
  /// Expects that the program fails with this one line on stderr.
  void expectComplaint(const std::string& arguments, const std::string& complaint) const {
    const Outcome result = run(arguments);
    EXPECT_EQ(result.exitCode, 1) << arguments;
    EXPECT_EQ(result.err, "workbench: " + complaint + "\n");
  }

  fs::path folder_;
};

TEST_F(ProgramTest, TellsOfACommandLineThatMakesNoSense) {
  expectComplaint("", "a command is wanted: new, play, sql, --version or --help");
  expectComplaint("dance", "unknown command dance, see workbench --help");
  expectComplaint("new", "use: workbench new DATABASE");
  expectComplaint("new ''", "use: workbench new DATABASE");
  expectComplaint("play", "use: workbench play SCENARIO [options]");
  expectComplaint("play a b", "use: workbench play SCENARIO [options]");
  expectComplaint("play a --firm 2", "unknown option --firm");
  expectComplaint("play a --company", "option --company wants a value");
  expectComplaint("sql", "use: workbench sql [--database FILE] (SCRIPT | -e TEXT)");
  expectComplaint("sql script -e text", "use: workbench sql [--database FILE] (SCRIPT | -e TEXT)");
  EXPECT_EQ(run("--help").exitCode, 0);
  EXPECT_NE(run("--help").out.find("tick-cell GRID N FIELD"), std::string::npos);
}

TEST_F(ProgramTest, TellsOfFilesThatCannotBeUsed) {
  const std::string text =
      write("text.db", "this is a text and no database, however long it may be");
  const std::string good = write("good.scenario", "expect no message\n");
  const std::string none = path("none");
  expectComplaint("play " + none, none + " cannot be read");
  expectComplaint("play " + folder_.string(), folder_.string() + " cannot be read");
  expectComplaint("play " + good + " --database " + none, "there is no database file " + none);
  expectComplaint("sql -e 'select 1' --database " + folder_.string(),
                  folder_.string() + " is not a database file");
  expectComplaint("new " + text, text + " exists already");
  expectComplaint("new " + none + "/x.db", "there is no folder " + none);
  expectComplaint("new :memory:",
                  ":memory: cannot be made: :memory:: cannot be the name of a file");
  expectComplaint("play " + good + " --statements " + none + "/x", none + "/x cannot be written");
  expectComplaint("play " + good + " --translations " + none, none + " cannot be read");
  const std::string wrong = write("wrong.tsv", "Conferma\tConfirm\nAnnulla\n");
  expectComplaint("play " + good + " --translations " + wrong,
                  wrong + ":2: a text and its translation with one tab between them are wanted");
  const std::string open = write("open.scenario", "open\ntype BOX 'x\n");
  expectComplaint("play " + open, open + ":2: a single quote is not closed");

  for (const std::string& command : {std::string("sql -e 'select 1'"), "play " + good}) {
    const Outcome result = run(command + " --database " + text);
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.err.find("workbench: " + text + " cannot be opened: "), 0U) << result.err;
  }
  EXPECT_EQ(read(text).size(), 54U) << "a file that is no database is left as it is";
}

TEST_F(ProgramTest, TellsOfOutputThatCannotBeWritten) {
  if (!fs::exists("/dev/full")) GTEST_SKIP() << "the system has no /dev/full";
  const std::string scenario = write("x.scenario", "open\nprint GRPMAIN_PAR\nclose\n");
  for (const std::string& command :
       {std::string("--help"), std::string("--version"), std::string("sql -e 'select 1 as A'"),
        "play " + scenario, "play " + scenario + " --statements /dev/full"}) {
    const std::string toFull = command.ends_with("full") ? path("out") : "/dev/full";
    const std::string whole =
        std::string(WORKBENCH_PROGRAM) + " " + command + " >" + toFull + " 2>" + path("err");
    const int status = std::system(whole.c_str());
    EXPECT_EQ(WEXITSTATUS(status), 1) << command;
    EXPECT_NE(read(path("err")).find("cannot be written"), std::string::npos) << command;
  }
}

TEST_F(ProgramTest, ADatabaseFileKeepsWhatWasDone) {
  const std::string file = path("demo.db");
  ASSERT_EQ(run("new " + file).exitCode, 0);
  const std::string database = " --database " + file;
  EXPECT_EQ(run("sql -e \"update MG58_DEPOSITI set MG58_DESCRDEP = 'Prova'\"" + database).exitCode,
            0);
  const Outcome changed =
      play("expect sql 'select distinct MG58_DESCRDEP from MG58_DEPOSITI' = Prova\n", database);
  EXPECT_EQ(changed.exitCode, 0) << changed.err;
  expectComplaint("new " + file, file + " exists already");
  for (const auto& entry : fs::directory_iterator(folder_)) {
    EXPECT_EQ(entry.path().string().find("journal"), std::string::npos) << entry.path();
  }
}

TEST_F(ProgramTest, SqlPrintsRowsAsAQueryToolDoes) {
  const Outcome rows =
      run("sql -e \"select 1 as A, cast(19.90 as decimal(9,2)) as B, null as C, 'x y' as D, "
          "cast('20240305' as datetime) as E\"");
  EXPECT_EQ(rows.exitCode, 0) << rows.err;
  EXPECT_EQ(rows.out, "A\tB\tC\tD\tE\n1\t19.90\tNULL\tx y\t2024-03-05 00:00:00.000\n");

  const Outcome script =
      run("sql " + write("a.sql",
                         "create table T (A int)\nGO\ninsert into T values (1), (2)\n"
                         "GO\nselect A from T order by A\nGO\nselect count(*) as N from T"));
  EXPECT_EQ(script.exitCode, 0) << script.err;
  EXPECT_EQ(script.out, "A\n1\n2\nN\n2\n");

  const Outcome failed = run("sql -e \"select 1 as A select * from NOSUCHTABLE\"");
  EXPECT_EQ(failed.exitCode, 1);
  EXPECT_EQ(failed.out, "A\n1\n");
  EXPECT_EQ(failed.err, "Msg 208, Level 16, State 1, Line 1\nInvalid object name 'NOSUCHTABLE'.\n");

  // An error of one row ends its statement, another batch is run all the same.
  const Outcome goesOn =
      run("sql " + write("b.sql",
                         "create procedure P as\nselect 1/0\nGO\nexec P\nselect 2 as B\n"
                         "GO\nselect 'a'\n+ GO\nGO\nselect 3 as C"));
  EXPECT_EQ(goesOn.exitCode, 1);
  EXPECT_EQ(goesOn.out, "B\n2\nC\n3\n");
  EXPECT_EQ(goesOn.err,
            "Msg 8134, Level 16, State 1, Procedure P, Line 2\nDivide by zero error encountered.\n"
            "Msg 102, Level 15, State 1, Line 2\nIncorrect syntax near 'GO' (line 2, column 3).\n");
}

TEST_F(ProgramTest, AScenarioThatCannotGoOnNamesItsLine) {
  const std::string name = path("x.scenario");
  const std::pair<const char*, const char*> cases[] = {
      {"open\njump\n", ":2: unknown step \"jump\"\n"},
      {"open\n\npage\n", ":3: wrong number of arguments, use: page N\n"},
      {"set WindowState wide\nopen\n", ":1: error 13: Type mismatch\n"},
      {"open\ntype TXT_NONE x\n", ":2: FRMKB_ANAGRAFICA has no control TXT_NONE\n"},
      {"print TXT_NUMLIST\n", ":1: no window is open\n"},
      {"open\npage 99\n", ":2: SBAR_MAIN has no link to view 99\n"},
  };
  for (const auto& [text, complaint] : cases) {
    const Outcome result = play(text);
    EXPECT_EQ(result.exitCode, 1) << text;
    EXPECT_EQ(result.err, name + complaint);
  }
  const Outcome unmet = play("expect sql 'select 1' = 2\nexpect sql 'select 3' = 3\n");
  EXPECT_EQ(unmet.exitCode, 1);
  EXPECT_EQ(unmet.err, name + ":1: sql select 1: expected \"2\", found \"1\"\n" + name +
                           ": 1 of 2 expectations not met\n");
}

TEST_F(ProgramTest, StatementsAreLoggedWithTheirFailures) {
  const std::string log = path("statements.jsonl");
  const Outcome result =
      play("fail 'SELECT NEWID()'\nopen\nexpect message 'made to fail'\nsql 'select 1 as OTHERS'\n",
           "--statements " + log);
  EXPECT_EQ(result.exitCode, 0) << result.out << result.err;
  std::istringstream lines(read(log));
  std::string first;
  std::string second;
  std::getline(lines, first);
  std::getline(lines, second);
  EXPECT_EQ(
      first.find("{\"text\": \"SELECT NEWID()\", \"rows\": 0, \"error\": \"The statement was"), 0U)
      << first;
  EXPECT_EQ(second, "{\"text\": \"SELECT NEWID()\", \"rows\": 1, \"error\": null}");
  EXPECT_EQ(read(log).find("OTHERS"), std::string::npos) << "that is not the plug-in's statement";
}

TEST_F(ProgramTest, AStatementThatAlwaysFailsEndsTheScenario) {
  const Outcome result = play("fail 'SELECT NEWID()' 1000\nopen\nprint TXT_NUMLIST\n");
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(result.err, path("x.scenario") + ":2: the same error came back after 10 retries\n");
}

TEST_F(ProgramTest, TraceLinesAreKept) {
  const std::string trace = path("trace");
  EXPECT_EQ(play("open\nclose\n", "--trace " + trace).exitCode, 0);
  std::istringstream lines(read(trace));
  std::vector<std::string> seen;
  for (std::string line; std::getline(lines, line);) seen.push_back(line);
  ASSERT_EQ(seen.size(), 4U) << read(trace);
  for (const auto& line : seen) EXPECT_EQ(line.substr(0, 6), "KVRA:|") << line;
}

TEST_F(ProgramTest, AScenarioMayEndWithTheWindowOpen) {
  const Outcome result = play("open\n");
  EXPECT_EQ(result.exitCode, 0) << result.err;  // nor is anything left behind in memory
}

}  // namespace
