// Writes the files of statement texts anew:
//
//   write_texts FOLDER
//
// tools/write_texts.sh builds and runs it.

#include <exception>
#include <fstream>
#include <iostream>

#include "tests/sql/text_files.h"

int main(int argc, char** argv) {
  try {
    if (argc != 2) throw std::runtime_error("use: write_texts FOLDER");
    const std::filesystem::path folder = argv[1];
    std::filesystem::create_directories(folder);
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      std::filesystem::remove(entry.path());
    }
    for (const kebu::sql::ExamplePage& page : kebu::sql::examplePages()) {
      std::ofstream file(kebu::sql::fileOf(folder, page), std::ios::binary);
      file.exceptions(std::ios::failbit | std::ios::badbit);
      file << kebu::sql::fileContent(page);
    }
    return 0;
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
}
