#include "image/LintComments.h"

namespace {

// Where the next "(*" or "*)" begins.
std::size_t FindSign(std::string_view line, std::size_t from)
{
  for (std::size_t star = line.find('*', from); star != std::string_view::npos; star = line.find('*', star + 1)) {
    if (star > from && line[star - 1] == '(') return star - 1;
    if (line.substr(star + 1).starts_with(')')) return star;
  }
  return line.size();
}

bool BeginsStatement(std::string_view text)
{
  return !text.empty() && std::string_view(":*!").find(text[0]) != std::string_view::npos;
}

}  // namespace

bool HoldsCommentSign(std::string_view text) { return FindSign(text, 0) < text.size(); }

std::string_view LongComments::take(unsigned int number, std::string_view line)
{
  const bool isComment = line.starts_with("(*");
  unsigned int begun = 0;  // in this line, and not ended yet
  std::string_view after;
  for (std::size_t sign = FindSign(line, 0); sign < line.size(); sign = FindSign(line, sign + 2)) {
    if (line[sign] == '(') {
      begun++;
      continue;
    }
    const bool isEnd = begun > 0 ? isComment : innermost != 0;
    if (begun > 0) {
      begun--;
    } else {
      end();
    }
    const std::string_view rest = line.substr(sign + 2);
    if (isEnd && begun == 0 && after.empty() && BeginsStatement(rest)) after = rest;
  }
  if (begun > 0) begin(number);
  return after;
}

void LongComments::begin(unsigned int number)
{
  comments.push_back({number, innermost, false});
  innermost = comments.size() - 1;
}

void LongComments::end()
{
  comments[innermost].hasEnd = true;
  innermost = comments[innermost].outer;
}

void LongComments::finish()
{
  // An outer comment stands before the inner ones, so that it is done before them.
  for (Comment& comment : comments) {
    if (!comment.hasEnd) comment.line = comments[comment.outer].line;
  }
}
