// Comments that reach over several lines. The tool knows none, so that the statements inside are live; but whoever
// writes one sees it.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

// Whether there is a "(*" or a "*)".
bool HoldsCommentSign(std::string_view text);

// A "(*" begins a comment, wherever it stands and also inside another one, and "*)" ends the innermost. A comment that
// nothing ends is one of a single line.
class LongComments {
 public:
  // Where the next line begins: in which comment, or 0 for outside of all.
  std::size_t place() const { return innermost; }
  // Takes the next line, without white space. What in it looks like a statement after the end of a comment is given
  // back; else nothing.
  std::string_view take(unsigned int number, std::string_view line);
  // After the last line: the line in which the innermost comment around the place begins that has an end; 0 for none.
  // Takes the places in any order, but not before all lines.
  void finish();
  unsigned int beginAround(std::size_t place) const { return comments[place].line; }

 private:
  struct Comment {
    unsigned int line = 0;
    std::size_t outer = 0;
    bool hasEnd = true;
  };

  void begin(unsigned int number);
  void end();

  std::vector<Comment> comments = {{}};  // in the order of their beginnings; the first one stands for the outside
  std::size_t innermost = 0;
};
