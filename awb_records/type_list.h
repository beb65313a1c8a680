// A list of types and the two walks generic code needs over it: one call per
// type in order, and one call for the type at a position chosen at run time.
#ifndef AWB_RECORDS_TYPE_LIST_H_
#define AWB_RECORDS_TYPE_LIST_H_

#include <cstddef>
#include <tuple>
#include <type_traits>

namespace qawb {

template <typename... Types>
struct TypeList {
  static constexpr std::size_t kSize = sizeof...(Types);
};

namespace internal {

// Lists built by X-macros start with a placeholder, so that every entry can
// be written as `, Type`; this drops it.
template <typename Placeholder, typename... Types>
struct DropPlaceholder {
  using type = TypeList<Types...>;
};

template <typename T, typename Result, typename Fn>
Result CallWithType(Fn& fn) {
  return fn.template operator()<T>();
}

template <typename Fn, typename... Types>
decltype(auto) VisitType(TypeList<Types...>, std::size_t index, Fn& fn) {
  using Result =
      std::common_type_t<decltype(fn.template operator()<Types>())...>;
  static constexpr Result (*kCalls[])(Fn&) = {
      &CallWithType<Types, Result, Fn>...};
  return kCalls[index](fn);
}

template <std::size_t Index, typename... Types>
std::type_identity<std::tuple_element_t<Index, std::tuple<Types...>>> TypeAt(
    TypeList<Types...>);

}  // namespace internal

// The type at `Index` of `List`.
template <typename List, std::size_t Index>
using TypeAt = typename decltype(internal::TypeAt<Index>(List{}))::type;

// Calls `fn.template operator()<T>()` for every T of `List`, in order.
template <typename List, typename Fn>
constexpr void ForEachType(Fn&& fn) {
  [&]<typename... Types>(TypeList<Types...>) {
    (fn.template operator()<Types>(), ...);
  }(List{});
}

// Calls `fn.template operator()<T>()` for the T at `index` of `List` and
// returns its result (the common type of every T's result). `index` must be
// below List::kSize.
template <typename List, typename Fn>
decltype(auto) VisitType(std::size_t index, Fn&& fn) {
  return internal::VisitType(List{}, index, fn);
}

// The position of T in `List`.
template <typename T, typename... Types>
consteval std::size_t IndexOf(TypeList<Types...>) {
  constexpr bool kIsT[] = {std::is_same_v<T, Types>..., false};
  std::size_t index = 0;
  while (index < sizeof...(Types) && !kIsT[index]) ++index;
  return index;
}

}  // namespace qawb

#endif  // AWB_RECORDS_TYPE_LIST_H_
