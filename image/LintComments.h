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
  // The innermost comment in which the next line begins; 0 for none.
  std::size_t place() const { return innermost; }
  // Takes the next line, without its white space. Returns what stands there after the end of a comment and looks like a
  // statement; else nothing.
  std::string_view take(unsigned int number, std::string_view line);
  // After the last line, when it is known which comments have an end.
  void finish();
  // After finish: the line in which the comment around the place begins, the innermost one with an end; 0 for none.
  unsigned int beginAround(std::size_t place) const { return comments[place].line; }

 private:
  struct Comment {
    unsigned int line = 0;
    std::size_t outer = 0;  // its place
    bool hasEnd = true;
  };

  void begin(unsigned int number);
  void end();

  std::vector<Comment> comments = {{}};  // by place, in the order in which they begin
  std::size_t innermost = 0;
};
