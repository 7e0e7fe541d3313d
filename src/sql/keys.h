#pragma once

#include <string>
#include <string_view>

// What most statements are made for. A company and a profile are both numbers, and a statement that
// took one for the other would run all the same; so each has a type of its own.
//
// Statement functions take their arguments in one order: the working table or view, the profile,
// the company, and then the rest.
namespace kebu::sql {

/// An ERP company by its code.
struct Company {
  std::string text;  ///< the number as SQL writes it
  operator std::string_view() const { return text; }
};

/// A connection profile by its identifier.
struct ProfileId {
  std::string text;  ///< the number as SQL writes it; "0" for no profile
  operator std::string_view() const { return text; }
};

}  // namespace kebu::sql
