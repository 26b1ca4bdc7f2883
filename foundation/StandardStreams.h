// The process's three standard streams, which stay open, and the way in which a message line is written.
#pragma once

#include <vector>

#include "foundation/ReadStream.h"
#include "foundation/WriteStream.h"

class StandardWriteStream : public WriteStream {
 public:
  StandardWriteStream();
  ~StandardWriteStream() override = default;
};

class StandardErrorStream : public WriteStream {
 public:
  StandardErrorStream();
  ~StandardErrorStream() override = default;
};

class StandardReadStream : public ReadStream {
 public:
  StandardReadStream();
  ~StandardReadStream() override = default;
};

// What a message line tells: how the run goes, or that a value of a source was not taken.
enum class MessageKind { progress, value };

// Writes the line and its end to standard error in one piece, so that lines of parallel runs do not mix.
void PrintErrorLine(const String& line, MessageKind kind = MessageKind::progress);

// Keeps the process's message lines while it lives, in place of their being written. One at a time.
class MessageCapture {
 public:
  struct Line {
    String text;
    MessageKind kind;
  };

  MessageCapture();
  ~MessageCapture();
  MessageCapture(const MessageCapture&) = delete;
  MessageCapture& operator=(const MessageCapture&) = delete;

  const std::vector<Line>& lines() const { return kept; }

 private:
  friend void PrintErrorLine(const String& line, MessageKind kind);

  std::vector<Line> kept;
};
