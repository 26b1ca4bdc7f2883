#include <gtest/gtest.h>

#include <functional>
#include <sstream>

#include "headers/AuxillaryHdr.h"
#include "headers/FileHdr.h"
#include "headers/SSDHdrX.h"
#include "headers/ScnHdr.h"
#include "headers/VPDHdrX.h"
#include "tests/TestSupport.h"

using V = VitalProductDataHeaderX;
using S = SystemSpecificDataHeaderX;

// The bytes with each "offset:hex" of `patches` put in.
static std::string Patched(ByteString bytes, const std::string& patches)
{
  std::istringstream words(patches);
  for (std::string word; words >> word;) {
    const ByteString patch = Bytes(word.substr(word.find(':') + 1));
    bytes.replace(static_cast<unsigned int>(std::stoul(word)), patch.length(), patch);
  }
  return Hex(bytes);
}

// 00 01 02 and so on.
static ByteString Counting(unsigned int count)
{
  ByteString bytes;
  while (bytes.length() < count) bytes += static_cast<unsigned char>(bytes.length());
  return bytes;
}

// What `set` makes of zeroed bytes with the value `on`, in wire form and in build form; only flags have an `off`.
using VpdSetter = std::function<void(V&, const String&)>;
static const struct VpdRow { VpdSetter set; std::string wire, build, on = "Y", off = "N"; } kVpdRows[] = {
  {&V::setHardwareDependency, "56:40", "56:02"}, {&V::setSoftwareDependency, "56:20", "56:04"},
  {&V::setReplaceableUnitChangeLid, "56:10", "56:08"}, {&V::setReplaceableUnitSelfLoad, "56:08", "56:10"},
  {&V::setReplaceableUnitFlashLoad, "56:04", "56:20"}, {&V::setReplaceableUnitBaseLoad, "59:10", "59:08"},
  {&V::setReplaceableUnitBodyType, "56:03", "56:c0", "VPDINFO", "CODE"},
  {&V::setReplaceableUnitBodyType, "56:02", "56:80", "PFGINFO", "CODE"},
  {&V::setReplaceableUnitBodyType, "56:01", "56:40", "SFGINFO", "CODE"},
  {&V::setSoftwareType, "60:80", "60:01", "MCG", "LPP"}, {&V::setDevelopedByVelmor, "61:80", "61:01", "N", "Y"},
  {&V::setDevelopedForVelmor, "61:40", "61:02", "N", "Y"}, {&V::setReplaceableUnitLoadId, "", "", "00000000", ""},
  {&V::setReplaceableUnitLoadId, "28:12ab34cd 59:20", "28:21ba43dc 59:04", "12AB34CDEF", ""},
  {&V::setReplaceableUnitLoadId, "28:01234567 59:20", "28:10325476 59:04", "1234567", ""},
  {[](V& vpd, const String&) { vpd.setVPDRULength(0x01020304); }, "0:01020304", "0:04030201", "", ""},
  {[](V& vpd, const String&) { vpd.setVitalProductDataBodyOffset(); }, "144:000000d0", "144:d0000000", "", ""},
  {[](V& vpd, const String&) { vpd.setSystemSpecificDataOffset(); }, "152:000000d0", "152:d0000000", "", ""},
};

TEST(VpdRecordTest, EachSetterFillsItsOwnBitsInBothForms)
{
  V allOff(ByteString(208, 0xFF));
  for (const VpdRow& row : kVpdRows) {
    V vpd(208);
    row.set(vpd, row.on.c_str());
    if (!row.off.empty()) {
      for (const char* const unknown : {"", "y", "n", "YN", "vpdinfo", "mcg"}) row.set(vpd, unknown);
      row.set(allOff, row.off.c_str());
    }
    EXPECT_EQ(Hex(vpd.getByteString()), Patched(ByteString(208, 0), row.build)) << row.wire << row.on;
    vpd.Endian();
    EXPECT_EQ(Hex(vpd.getByteString()), Patched(ByteString(208, 0), row.wire)) << row.wire << row.on;
  }
  allOff.Endian();
  EXPECT_EQ(Hex(allOff.getByteString()), Patched(ByteString(208, 0xFF), "56:80ffffef7f3f"));
  V vpd(Counting(300));  // Endian converts the reserved bits and numbers too, and nothing behind the record.
  EXPECT_TRUE(vpd.getVPDRULength() == 0x03020100 && vpd.getSystemSpecificDataOffset() == 0x9B9A9998);
  vpd.Endian();
  EXPECT_EQ(Hex(vpd.getByteString()), Patched(Counting(300), "0:03020100 28:c1d1e1f1 56:1c27ce93638f "
                                              "144:93929190979695949b9a99989f9e9d9ca3a2a1a0"));
}

static const std::string kIs = " value in the RUVPD source file is ";
// `values` are pairs of a value and what it stores at `offset`; a refused one gives `code` and `line` with the value.
using SsdSetter = std::function<int(S&, const String&)>;
static const struct SsdRow { SsdSetter set; std::string offset, values; int code = 0; std::string line = ""; } kSsdRows[] = {
  {&S::setNucleusSequenceControl, "24:", "0a0B0C0D0E 0a0b0c0d 1234567 01234567", 38, "Nucleus Sequence Control" + kIs},
  {&S::setLinkLoaderBypass, "40:", "Y 01 N 00", 41, "Link/loader Bypass" + kIs},
  {[](S& ssd, const String& value) { return ssd.setReplaceableUnitDestination(value); }, "41:",
   "NUC1 01 NUC2 02 NUC3 0c SERV 03 IDE 04 IBLA 05 DBLA 06 CBLA 07 MRI 08 PBLA 09 MACH 10 MCHP 11 SU36 0b USER 20 "
   "USRP 21 *MCG 40 IOP1 81 IOP2 82 IOP3 84 IOP4 88 RULL 0a NUCP 0f SBLA 0e HYP1 31 HYP2 32 NUCB 34 PHYP1 50 PNUC1 51 "
   "PDBLA 52 PHYP2 53 PNUC2 54 PCBLA 55 PIBLA 56", 39, "RU Destination" + kIs},
  {&S::setDeleteReplaceableUnit, "42:", "Y 01 N 00", 42, "Delete RU" + kIs},
  {&S::setOnlineLLFlag, "43:", "Y 01 N 00", 47, "Online Link/Loadable Flag is "},
  {&S::setSSDModel, "45:", "VANT0 01 TRIDE 02 HARN 03 VANTL 04 VANT4 05 VNT41 05 TRID1 06 LOSK 07 VAN41 08 VNTA4 08 "
   "TOLVEN 09 GLOVA 0a BRAXEN 0b QUENTARIS 0c BRAXEN_TPA 0d QUENTARIS_TPA 0e FENRIX 10 TERVASCOPIN 11 NONE 00",
   36, "SSD Model" + kIs},
  {&S::setAllowBreakpoints, "46:", "Y 01 N 00", 37, "Allow Breakpoints" + kIs},
  {[](S& ssd, const String& text) { return ssd.setReplaceableUnitTypeOption(text), 0; }, "44:", "VORN 01 LID 02 L aa"},
  {[](S& ssd, const String& text) { return ssd.setReplaceableUnitName(text), 0; }, "32:", "a 81 ABcdefGHI c1c28384858687c8"},
  {[](S& ssd, const String&) { return ssd.setReplaceableUnitNameOffset(0x01020304), 0; }, "36:", "is 01020304"},
  {[](S& ssd, const String&) { return ssd.setReplaceableUnitDestination(); }, "41:", "none 00"},
};

TEST(SsdRecordTest, AcceptedValuesStoreTheirBytesAndOthersGiveALineAndACode)
{
  for (const SsdRow& row : kSsdRows) {
    std::istringstream pairs(row.values + (row.code == 0 ? "" : " y - YN - X - nuc1 - NUC - vant4 - ABCDEF -"));
    for (std::string value, bytes; pairs >> value >> bytes;) {
      const bool refused = bytes == "-";
      S ssd(ByteString(70, 0xAA));
      testing::internal::CaptureStderr();
      EXPECT_EQ(row.set(ssd, value.c_str()), refused ? row.code : 0) << row.offset << value;
      EXPECT_EQ(testing::internal::GetCapturedStderr(), refused ? row.line + value + ".\n" : "");
      EXPECT_EQ(Hex(ssd.getByteString()), Patched(ByteString(70, 0xAA), refused ? "" : row.offset + bytes)) << value;
    }
  }
}

TEST(ObjectFileRecordsTest, EndianReversesEachFieldOfBytesAndSetters)
{
  FileHdr file(Counting(25));
  file.setMagicNumber();
  file.setNumberOfSections(0xABCD), file.setNumberOfOptionalHeaderBytes(0x9A9B);
  file.setTimeDate(-2), file.setSymPtr(0x1F5F6F7F8);
  file.Endian();
  EXPECT_EQ(Hex(file.getByteString()), Patched(Counting(20), "0:01dfabcdfffffffef5f6f7f80f0e0d0c9a9b1312"));
  AuxillaryHdr auxillary(Counting(80));
  auxillary.setMFlag(), auxillary.setVStamp();
  auxillary.Endian();
  EXPECT_EQ(Hex(auxillary.getByteString()), Patched(Counting(80), "0:010b0010070605040b0a09080f0e0d0c1312111017161514"
                                                    "1b1a1918"));
  ScnHdr section(Counting(42));
  String names[] = {"LONGNAME9", ".text"};
  for (String& name : names) section.setSectionName(name);
  section.setNumberOfRawDataBytes(-2), section.setOffsetToRawData(0xF5F6F7F8), section.setSectionFlagAsData();
  section.Endian();
  EXPECT_EQ(Hex(section.getByteString()), Patched(Counting(42), "0:4ba385a7a3c1d4c50b0a09080f0e0d0cfffffffef5f6f7f8"
                                                  "1b1a19181f1e1d1c2120232200000020"));
}

template <class Record>
static std::string Held(const Record& record) { return record.valid() ? Hex(record.getByteString()) : "invalid"; }

TEST(RecordsTest, ShortInputIsInvalidAndLongInputIsKept)
{
  for (unsigned int length = 0; length <= 300; length++) {
    const ByteString bytes = Counting(length);
    EXPECT_EQ(Held(V(bytes)), length < 208 ? "invalid" : Hex(bytes)) << length;
    EXPECT_EQ(Held(S(bytes)), length < 64 ? "invalid" : Hex(bytes)) << length;
    EXPECT_EQ(Held(FileHdr(bytes)), length < 20 ? "invalid" : Hex(Counting(20))) << length;
    EXPECT_EQ(Held(AuxillaryHdr(bytes)), length < 72 ? "invalid" : Hex(bytes)) << length;
    EXPECT_EQ(Held(ScnHdr(bytes)), length < 16 ? "invalid" : Hex(bytes + ByteString(40 - std::min(length, 40U), 0)));
    EXPECT_TRUE(V(length).valid() == (length >= 208) && S(length).valid() == (length >= 64)) << length;
    EXPECT_TRUE(FileHdr(length).valid() == (length >= 20) && ScnHdr(length).valid() == (length >= 40)) << length;
  }
}

TEST(RecordsDeathTest, AnInvalidRecordFailsItsAssertion)
{
  V vpd(207);
  S ssd(ByteString(63, 0));
  for (const VpdRow& row : kVpdRows) EXPECT_DEATH(row.set(vpd, "Y"), "VPDHdrX:.*`valid\\(\\)'") << row.wire;
  for (const SsdRow& row : kSsdRows) EXPECT_DEATH(row.set(ssd, "Y"), "SSDHdrX:.*`valid\\(\\)'") << row.offset;
  EXPECT_DEATH(FileHdr(19).setSymPtr(1), "FileHdr:[0-9]+: void FileHdr::setSymPtr \\(long int\\): .*`valid\\(\\)'");
  EXPECT_DEATH(AuxillaryHdr(27).Endian(), "AuxillaryHdr:[0-9]+: void AuxillaryHdr::Endian \\(\\): .*`valid\\(\\)'");
  EXPECT_DEATH(ScnHdr(39).Endian(), "ScnHdr:[0-9]+: void ScnHdr::Endian \\(\\): .*`valid\\(\\)'");
}
