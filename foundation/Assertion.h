// Broken preconditions: a caller's fault, never an input's. The texts are fixed by the operation that asserts.
#pragma once

#if __has_include(<source_location>)
#include <source_location>
#endif

#include "foundation/BasicTypes.h"

// The function that asserts, as its text, and the line of the assertion. The text is given where the assertion stands;
// the text of another function does not compile. g++ compares the whole signature; clang 14, which has no
// std::source_location, compares the name.
struct AssertingFunction {
  // NOLINTNEXTLINE(google-explicit-constructor): the text stands in for the function
#ifdef __cpp_lib_source_location
  consteval AssertingFunction(const char* functionText, std::source_location here = std::source_location::current())
      : text(functionText), line(here.line())
  {
    if (!IsSignature(text, here.function_name())) throw "the text of another function";
  }
#else
  consteval AssertingFunction(const char* functionText, const char* name = __builtin_FUNCTION(),
                              unsigned int here = __builtin_LINE())
      : text(functionText), line(here)
  {
    if (!HoldsName(text, name)) throw "the text of another function";
  }
#endif

  const char* text;
  unsigned int line;

 private:
  // What follows the word at the beginning of the signature, or the whole signature when it begins otherwise.
  static consteval const char* Without(const char* word, const char* signature)
  {
    const char* rest = signature;
    while (*word != '\0' && *word == *rest) word++, rest++;
    return *word == '\0' ? rest : signature;
  }
  // Whether the text is the signature as the fixed texts write it: a blank before "(", and before "&" and "*" instead
  // of after them; without what a definition does not repeat.
  static consteval boolean IsSignature(const char* text, const char* signature)
  {
    signature = Without("virtual ", Without("static ", signature));
    for (; *signature != '\0'; signature++) {
      const boolean isMark = *signature == '&' || *signature == '*';
      if ((isMark || *signature == '(') && *text++ != ' ') return false;
      if (*text++ != *signature) return false;
      if (isMark && signature[1] == ' ') signature++;
    }
    return *text == '\0';
  }
  // Whether "::", the name and " (" stand in the text.
  static consteval boolean HoldsName(const char* text, const char* name)
  {
    for (; *text != '\0'; text++) {
      if (text[0] != ':' || text[1] != ':') continue;
      const char* rest = text + 2;
      const char* letter = name;
      while (*letter != '\0' && *rest == *letter) rest++, letter++;
      if (*letter == '\0' && rest[0] == ' ' && rest[1] == '(') return true;
    }
    return false;
  }
};

// Writes "source:line: function: Assertion `expression' failed." to standard error and ends the program by abort.
[[noreturn]] void AssertionFailed(const char* expression, const char* source, const AssertingFunction& function);

// Ends the program unless `holds`.
inline void Assert(boolean holds, const char* expression, const char* source, const AssertingFunction& function)
{
  if (!holds) [[unlikely]] {
    AssertionFailed(expression, source, function);
  }
}
