#pragma once

namespace kebu {

/// The cases of a std::visit as lambdas, one for every type.
template <class... Cases>
struct Overloaded : Cases... {
  using Cases::operator()...;
};
template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

}  // namespace kebu
