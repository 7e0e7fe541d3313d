#pragma once

#include <filesystem>
#include <string>

#include "tests/sql/statement_examples.h"

namespace kebu::sql {

/// The content of a page's file: each text between a comment line with its name and a line "GO", as
/// query tools read it. Line ends are carriage return and line feed throughout, as in the texts.
std::string fileContent(const ExamplePage& page);

/// Where the page's file lies in the folder of texts.
std::filesystem::path fileOf(const std::filesystem::path& folder, const ExamplePage& page);

/// A file's bytes; std::runtime_error when it cannot be read.
std::string readFile(const std::filesystem::path& path);

}  // namespace kebu::sql
