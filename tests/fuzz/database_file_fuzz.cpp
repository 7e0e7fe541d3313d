// A damaged database file: every 8 bytes of the input put a byte somewhere into a whole file, or
// cut it. It is opened and read, or refused with an error; nothing crashes, and nothing takes long.

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/fuzz/fuzz_target.h"
#include "workbench/engine/execution/database.h"
#include "workbench/engine/execution/session.h"

namespace {

using namespace kebu;
using namespace kebu::tests;

namespace fs = std::filesystem;

fs::path pathOf(const char* name) {
  // In memory where there is such a folder: thousands of files are written.
  static const fs::path memory = "/dev/shm";
  static const fs::path folder = fs::is_directory(memory) ? memory : fs::temp_directory_path();
  return folder / (std::string(name) + std::to_string(getpid()) + ".db");
}

const std::string& wholeFile() {
  static const std::string content = [] {
    const fs::path path = pathOf("kebu_whole");
    fs::remove(path);
    {
      engine::Session session(engine::Database::createFile(path.string()));
      session.execute(
          "CREATE TABLE T (A int NOT NULL, B varchar(10) NULL, C decimal(28,5) NULL, D datetime "
          "NULL, E bit "
          "NULL, F decimal(9,2) NULL, PRIMARY KEY (A))");
      for (int row = 0; row < 200; ++row) {
        session.execute("INSERT INTO T VALUES (" + std::to_string(row) +
                        ", 'riga', 1.5, '20260131', 1, -2.25)");
      }
      session.execute("CREATE VIEW V AS SELECT A, B FROM T WHERE A > 5");
    }
    std::ifstream file(path, std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(file), {}};
    fs::remove(path);
    return bytes;
  }();
  return content;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string bytes = wholeFile();
  constexpr std::size_t step = 8;
  for (std::size_t i = 0; i + step <= size; i += step) {
    const std::size_t place =
        ((std::size_t{data[i]} << 16) + (std::size_t{data[i + 1]} << 8) + data[i + 2]) %
        bytes.size();
    if (data[i + 3] == 255 && place > 0) {
      bytes.resize(place);
    } else {
      bytes[place] = static_cast<char>(data[i + 4]);
    }
  }
  const fs::path path = pathOf("kebu_damaged");
  std::ofstream(path, std::ios::binary) << bytes;
  try {
    const auto database = engine::Database::openFile(path.string());
    database->run("PRAGMA synchronous = OFF");  // nobody waits for the disk
    engine::Session session(database);
    for (const char* statement :
         {"SELECT * FROM T ORDER BY B", "SELECT COUNT(*) FROM V",
          "SELECT C * 2, DATEADD(day, 1, D), UPPER(B), LEN(B), F + A, CASE WHEN E = 1 THEN C END "
          "FROM T "
          "WHERE D > '20200101' ORDER BY C",
          "INSERT INTO T (A, B) VALUES (1000, 'x')", "UPDATE T SET B = 'y' WHERE A < 50",
          "SELECT name FROM sys.tables"}) {
      try {
        session.execute(statement);
      } catch (const RuntimeError& error) {
        require(!error.description().empty(), "an error without text");
      }
    }
  } catch (const RuntimeError& error) {
    require(!error.description().empty(), "an error without text");
  }
  fs::remove(path);
  fs::remove(path.string() + "-journal");
  return 0;
}
