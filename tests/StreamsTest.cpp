#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <sstream>

#include "foundation/FileStreams.h"
#include "foundation/StreamPtr.h"
#include "tests/TestSupport.h"

using std::ios;

static FileName Name(const std::string& path) { return FileName(ToString(path)); }

TEST(ReadStreamTest, ALineComesWithoutItsDelimiterAndALongerOneThanTheLimitIsAFailure)
{
  std::istringstream in("one\nnex12345\n12345");
  ReadStream stream(&in);
  String text;
  stream >> text;
  EXPECT_EQ(Text(text), "one");
  stream.getLine(text, 'x');
  EXPECT_EQ(Text(text), "ne");
  for (int line = 0; line < 2; line++) {
    stream.getLine(text, '\n', 5);
    EXPECT_EQ(Text(text), "12345");
    EXPECT_FALSE(stream.failure());
  }
  EXPECT_TRUE(stream.endOfFile());
  stream.setOffset(7);
  stream.getLine(text, '\n', 4);
  EXPECT_EQ(Text(text), "1234");
  EXPECT_TRUE(stream.failure());
}

TEST(ReadFileStreamTest, FilesOfEverySizeAreReadWholeAndAgainFromAnOffset)
{
  const TemporaryFolder folder;
  errno = EINTR;  // what an earlier call left
  const int unused = dup(0);
  close(unused);
  for (const unsigned int size : {0U, 1U, 4U, 255U, 256U, 257U, 512U, 4095U, 4096U, 4097U, 9000U, 19000U}) {
    SCOPED_TRACE(size);
    std::string content(size, '\xff');
    for (unsigned int i = 1; i < size; i++) content[i] = static_cast<char>(i * 7);
    ReadFileStream stream(Name(folder.write("file", content)), ios::in);
    ByteString bytes = Bytes("11"), part = bytes, after = bytes;
    EXPECT_EQ(stream.getOffset(), 0U);
    EXPECT_EQ(stream.peekChar(), size == 0 ? -1 : 255);
    stream.setOffset(0);
    EXPECT_TRUE(stream.getByteString(bytes).getByteString(after, 10).endOfFile());
    EXPECT_EQ(Hex(bytes), Hex(content));
    stream.setOffset(99999);
    stream.getByteString(after).setOffset(0x100000000);
    EXPECT_EQ(stream.getByteString(part, 300).endOfFile(), size <= 300);
    EXPECT_EQ(Hex(part), Hex(content.substr(0, 300)));
    EXPECT_EQ(stream.getOffset() + after.length(), std::min(size, 300U));
    // What is buffered comes before what is read directly, and that before the rest.
    unsigned int done = part.length();
    for (const unsigned int wanted : {5000U, 9000U}) {
      stream.peekChar();
      bytes = ByteString(10000U, 0x00);
      const unsigned int read = std::min(wanted, size - done);
      EXPECT_EQ(stream.readUpTo(bytes.getBytePointer(), wanted), read);
      EXPECT_EQ(Hex(bytes), Hex(content.substr(done, read) + std::string(10000 - read, '\0')));
      done += read;
      EXPECT_EQ(stream.getOffset(), done);
    }
    EXPECT_FALSE(stream.failure());
  }
  EXPECT_EQ(dup(0), unused) << "all are closed";
  close(unused);
}

TEST(FileStatusTest, AnAbsentFileIsNoOther)
{
  const TemporaryFolder folder;
  const FileStatus there(ToString(folder.write("file", ""))), absent(ToString(folder / "none"));
  EXPECT_TRUE(there.mayBeSameFile(there));
  EXPECT_TRUE(there.mayBeSameFile(FileStatus()));  // not known
  for (const auto& [one, other] : {std::pair(there, absent), {absent, there}, {absent, FileStatus()}})
    EXPECT_FALSE(one.mayBeSameFile(other));
}

TEST(ReadFileStreamTest, WhatCannotBeReadIsAFailureAndGivesNothing)
{
  const TemporaryFolder folder;
  for (const std::string& name : {folder / "missing", folder / "", folder / "missing/", folder / ".",
                                  folder.write("name", "x") + '\0', std::string("/proc/self/mem")}) {
    ReadFileStream stream(Name(name), String("text"));
    ByteString bytes = Bytes("11");
    EXPECT_EQ(stream.failure(), name != "/proc/self/mem") << name;
    EXPECT_TRUE(stream.getByteString(bytes).failure()) << name;
    EXPECT_EQ(Hex(bytes), "") << name;
  }
  EXPECT_FALSE(ReadFileStream(Name("/proc/self/exe"), ios::in).failure());  // nobody may write it
}

TEST(ReadStreamTest, FailureComesOfReadingBeyondMemoryOrTheEndAndGoesWithoutTheEnd)
{
  std::istringstream in("\xff");
  ReadStream stream(&in);
  String text;
  EXPECT_EQ(stream.getChar(), 255);
  EXPECT_EQ(stream.peekChar() + stream.peekChar(), -2);
  EXPECT_EQ(in.rdstate(), ios::eofbit);
  stream.getString(text, 0xffffffff);
  EXPECT_TRUE(stream.failure());
  stream.clearFailure();
  EXPECT_EQ(in.rdstate(), ios::eofbit);
  stream.setOffset(2);
  EXPECT_EQ(in.rdstate(), ios::failbit);
  ByteString bytes;
  stream.getByteString(bytes, 1);
  EXPECT_TRUE(stream.failure());
  std::istream none(nullptr);
  ReadStream noBuffer(&none);
  EXPECT_EQ(noBuffer.getOffset(), 4294967295U);
  noBuffer.clearFailure();
  noBuffer.setOffset(0);
  EXPECT_TRUE(noBuffer.failure());
}

TEST(WriteStreamTest, BytesPassUnchangedAndNumbersAreThirtyTwoBitsInTheBase)
{
  std::ostringstream out;
  WriteStream stream(&out);
  stream.putString("b\0c");
  stream.write("e\0", 2);
  stream.putByteString(Bytes("00 ff"));
  stream << 'c' << "t" << String("\0", 1) << -1 << ' ' << -1L << ' ' << ~0UL << ' ' << 4294967304L << ' ';
  stream.setHexadecimal() << -1 << ' ' << -255L << ' ' << ~0UL << ' ';
  (stream.setOctal() << -1 << ' ' << 8U).setDecimal() << 10;
  EXPECT_EQ(Hex(out.str().substr(0, 8)), "62 65 00 00 ff 63 74 00");
  EXPECT_EQ(out.str().substr(8), "-1 -1 4294967295 8 ffffffff ffffff01 ffffffff 37777777777 1010");
}

TEST(WriteFileStreamTest, SmallAndLargeWritesKeepTheirOrderAndCloseFlushesOnce)
{
  const TemporaryFolder folder;
  WriteFileStream stream(Name(folder / "file"), ios::out);
  for (int i = 0; i < 5000; i++) stream.putChar('a');
  (stream << std::string(5000, 'b').c_str() << 'c').close();
  EXPECT_EQ(folder.read("file"), std::string(5000, 'a') + std::string(5000, 'b') + 'c');
  (stream << "z").close();
  EXPECT_EQ(folder.read("file").size(), 10001U);
}

TEST(WriteFileStreamTest, TheModeSaysWhatBecomesOfAnOldFile)
{
  const TemporaryFolder folder;
  for (const auto& [mode, after] : {std::pair(ios::app, "oldx"),
                                    {ios::in, "xld"},
                                    {ios::in | ios::ate, "oldx"},
                                    {ios::in | ios::trunc | ios::ate, "x"}}) {
    folder.write("file", "old");
    WriteFileStream(Name(folder / "file"), mode) << "x";
    EXPECT_EQ(folder.read("file"), after) << mode;
  }
  EXPECT_EQ(ReadFileStream(Name(folder / "file"), ios::ate).getOffset(), 1U);
  EXPECT_TRUE(WriteFileStream(Name(folder / "file"), ios::app | ios::trunc).failure());
  EXPECT_TRUE(WriteFileStream(Name(folder / "missing/file"), ios::out).failure());
}

TEST(WriteFileStreamTest, NewFilesGetTheirPermissionsAndOldOnesKeepThem)
{
  const TemporaryFolder folder;
  const mode_t old = umask(0);
  for (const auto& [name, mask, mode] : {std::tuple("new", 0U, 0664U), {"cut", 027U, 0640U}, {"cut", 0U, 0640U}}) {
    umask(mask);
    WriteFileStream(Name(folder / name), String("in")) << (mask == 0 ? "x" : "long");
    EXPECT_EQ(fs::status(folder / name).permissions(), fs::perms(mode)) << name;
  }
  umask(old);
  EXPECT_EQ(folder.read("cut"), "x");
}

TEST(CautiousWriteFileStreamTest, AnOldFileStaysUntilItIsEmptied)
{
  const TemporaryFolder folder;
  for (const auto& [emptied, after] : {std::pair(false, "xld"), {true, "x"}}) {
    folder.write("file", "old");
    CautiousWriteFileStream stream(Name(folder / "file"));
    EXPECT_FALSE(stream.isNew());
    EXPECT_EQ(stream.status().size(), 3U);
    if (emptied) stream.empty();
    (stream << "x").flush();
    EXPECT_EQ(folder.read("file"), after);
  }
  fs::create_symlink("none", folder / "link");
  for (const char* name : {"new", "link"}) EXPECT_TRUE(CautiousWriteFileStream(Name(folder / name)).isNew());
  const int sealed = memfd_create("sealed", MFD_ALLOW_SEALING);
  EXPECT_EQ(ftruncate(sealed, 3) + fcntl(sealed, F_ADD_SEALS, F_SEAL_SHRINK), 0);
  CautiousWriteFileStream stream(Name("/proc/self/fd/" + std::to_string(sealed)));
  stream.empty();
  EXPECT_TRUE(stream.failure());
  stream.clearFailure();
  (stream << "x").flush();
  EXPECT_TRUE(stream.failure());
  close(sealed);
}

TEST(WriteFileStreamTest, AFullFileFailsAtTheFlush)
{
  WriteFileStream full(Name("/dev/full"), ios::out);
  (full << "x").putByteString(ByteString());  // no bytes, no block
  EXPECT_FALSE(full.failure());
  full.flush();
  EXPECT_TRUE(full.failure());
}

struct Watched : WriteStream {
  using WriteStream::WriteStream;
  ~Watched() override { gone++; }
  static inline int gone = 0;
};

TEST(WriteStreamPtrTest, TheLastWrapperToReleaseDeletesTheStreamOnce)
{
  WriteStream* const raw = new Watched(nullptr);
  WriteStreamPtr first(raw), second(first), third, empty(third);
  third = second;
  third = *&third;
  EXPECT_TRUE(first == third);
  EXPECT_TRUE(raw == third);
  EXPECT_TRUE(empty != first);
  Watched::gone = 0;
  first.release();
  second = empty;
  EXPECT_EQ(Watched::gone, 0);
  third.release();
  EXPECT_EQ(Watched::gone, 1);
  EXPECT_TRUE(third == empty);
}
