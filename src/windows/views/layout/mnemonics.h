#pragma once

#include <string>
#include <vector>

namespace kebu::windows::layout {

/// The letter, as an index of a byte, by which each caption is reached with the
/// Alt key: no letter twice, earlier captions first; npos where none is left.
std::vector<std::size_t> chooseMnemonics(const std::vector<std::string>& captions);

/// The caption as a control takes it: with "&" before the letter at `at`, and
/// with every "&" of its own doubled.
std::string withMnemonic(const std::string& caption, std::size_t at);

}  // namespace kebu::windows::layout
