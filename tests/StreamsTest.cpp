#include <gtest/gtest.h>
#include <sys/stat.h>

#include <sstream>

#include "foundation/FileStreams.h"
#include "foundation/StreamPtr.h"
#include "tests/TestSupport.h"

namespace {

FileName Name(const std::string& path) { return FileName(String(path.c_str())); }

TEST(ReadStreamTest, ALineOfAnyLengthIsReadWholeWithAndWithoutItsDelimiter)
{
  for (const size_t n : {0U, 1U, 127U, 128U, 129U, 255U, 256U, 257U, 300U, 384U})
    for (const std::string tail : {"", "\n", "\nnext"}) {
      const std::string line(n, '\0');
      std::istringstream in(line + tail);
      ReadStream stream(&in);
      String text("old"), next("old");
      const boolean failed = (stream >> text).failure(), end = stream.endOfFile() && stream.endOfFile();
      stream.getLine(next, 'x');
      EXPECT_TRUE(Text(text) == line && failed == (n + tail.size() == 0)) << n << tail;
      EXPECT_TRUE(end == (tail != "\nnext") && stream.failure() == end && next == (end ? "" : "ne")) << n << tail;
    }
}

TEST(ReadFileStreamTest, FilesOfEverySizeAreReadWholeAndAgainFromAnOffset)
{
  const TemporaryFolder folder;
  for (const unsigned int size : {0U, 1U, 4U, 255U, 256U, 257U, 512U, 4095U, 4096U, 4097U}) {
    std::string content(size, '\xff');
    for (unsigned int i = 1; i < size; i++) content[i] = static_cast<char>(i * 7);
    ReadFileStream stream(Name(folder.write("file", content)), std::ios::in);
    ByteString bytes = Bytes("11"), behind = bytes, part;
    EXPECT_TRUE(stream.getByteString(bytes).getByteString(behind, 10).endOfFile() && !stream.failure() &&
                stream.getOffset() == size)
        << size;
    stream.setOffset(9999), stream.getByteString(behind).setOffset(0);
    EXPECT_TRUE(behind.empty() && stream.endOfFile() == (size == 0) && !stream.failure()) << size;
    EXPECT_TRUE(stream.getByteString(part, 10).endOfFile() == (size <= 10) && !stream.failure()) << size;
    EXPECT_EQ(Hex(bytes) + Hex(part), Hex(content) + Hex(content.substr(0, 10)));
    EXPECT_EQ((stream.setOffset(0), stream.getChar()), size == 0 ? -1 : 255);
  }
  for (const std::string name : {"/missing", "", "/missing/", "/."}) {
    ReadFileStream stream(Name(folder.path() + name), String("text"));
    ByteString bytes = Bytes("11");
    EXPECT_TRUE(stream.failure() && stream.getByteString(bytes).failure() && bytes.empty()) << name;
  }
}

TEST(ReadStreamTest, LookingAtTheEndIsNoFailureAndAReadBeyondMemoryIs)
{
  std::istringstream in("a");
  ReadStream stream(&in);
  String text;
  EXPECT_EQ(stream.getChar(), 'a');
  EXPECT_TRUE(stream.peekChar() == -1 && stream.peekChar() == -1 && !stream.failure());
  stream.getString(text, 4294967295U);
  EXPECT_TRUE(stream.failure() && text.empty());
}

TEST(WriteStreamTest, BytesPassUnchangedAndNumbersAreThirtyTwoBitsInTheBase)
{
  std::ostringstream out;
  WriteStream stream(&out);
  stream.putChar('a'), stream.putString("b\0c"), stream.putString(String("d\0", 2)), stream.write("e\0", 2);
  stream.putByteString(Bytes("00 ff")), stream << 'c' << "t" << String("\0", 1) << -1 << ' ' << -1L << ' ' << ~0UL;
  stream << ' ' << 4294967304L << ' ', stream.setHexadecimal() << -1 << ' ' << -255L << ' ' << ~0UL << ' ';
  stream.setOctal() << -1 << ' ' << 8U, stream.setDecimal() << 10;
  EXPECT_EQ(Hex(out.str().substr(0, 11)), "61 62 64 00 65 00 00 ff 63 74 00");
  EXPECT_EQ(out.str().substr(11), "-1 -1 4294967295 8 ffffffff ffffff01 ffffffff 37777777777 1010");
}

TEST(WriteFileStreamTest, NewFilesGetTheirPermissionsAndOldOnesAreEmptiedFirst)
{
  const TemporaryFolder folder;
  for (const auto& [name, mask, mode] : {std::tuple("new", 0U, 0664U), {"cut", 027U, 0640U}, {"cut", 0U, 0640U}}) {
    const mode_t old = umask(mask);
    WriteFileStream(Name(folder / name), std::ios::out) << "long content";
    WriteFileStream(Name(folder / name), String("in")) << "x";
    umask(old);
    struct stat status = {};
    EXPECT_TRUE(stat((folder / name).c_str(), &status) == 0 && (status.st_mode & 0777U) == mode) << status.st_mode;
    EXPECT_EQ(folder.read(name), "x") << name;
  }
  WriteFileStream nowhere(Name(folder / "missing/file"), std::ios::out), full(Name("/dev/full"), std::ios::out);
  full.putByteString(ByteString());  // no bytes, no block
  EXPECT_FALSE(full.failure());
  nowhere << "x", full << "x", full.flush();
  EXPECT_TRUE(nowhere.failure() && full.failure());
}

struct Watched : WriteStream {
  using WriteStream::WriteStream;
  ~Watched() override { gone++; }
  static inline int gone = 0;
};

TEST(WriteStreamPtrTest, TheLastWrapperToReleaseDeletesTheStreamOnce)
{
  {
    WriteStream* const raw = new Watched(nullptr);
    WriteStreamPtr first(raw), second(first), third, empty(third);
    third = second, third = *&third;
    EXPECT_TRUE(first == third && &*first == raw && raw == third && empty != first && empty != raw && raw != empty);
    first.release(), second = empty;
    EXPECT_EQ(Watched::gone, 0);
    third.release();
  }
  EXPECT_EQ(Watched::gone, 1);
}

}  // namespace
