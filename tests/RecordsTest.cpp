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

// The bytes with each "offset:hex" of `patches`, which commas part, put in.
static std::string Patched(ByteString bytes, const std::string& patches)
{
  std::istringstream words(patches);
  for (std::string word; std::getline(words, word, ',');) {
    const ByteString patch = Bytes(word.substr(word.find(':') + 1));
    bytes.replace(static_cast<unsigned int>(std::stoul(word)), patch.length(), patch);
  }
  return Hex(bytes);
}

// For each flag: a value, its byte, the bits that it sets there in wire form and in build form, the clearing value.
static const std::pair<std::function<void(V&, const String&)>, std::string> kFlags[] = {
    {&V::setReplaceableUnitChangeLid, "Y 56: 10 08 N"},         {&V::setHardwareDependency, "Y 56: 40 02 N"},
    {&V::setReplaceableUnitFlashLoad, "Y 56: 04 20 N"},         {&V::setSoftwareDependency, "Y 56: 20 04 N"},
    {&V::setReplaceableUnitSelfLoad, "Y 56: 08 10 N"},          {&V::setReplaceableUnitBaseLoad, "Y 59: 10 08 N"},
    {&V::setReplaceableUnitBodyType, "PFGINFO 56: 02 80 CODE"}, {&V::setDevelopedByVelmor, "N 61: 80 01 Y"},
    {&V::setReplaceableUnitBodyType, "SFGINFO 56: 01 40 CODE"}, {&V::setDevelopedForVelmor, "N 61: 40 02 Y"},
    {&V::setReplaceableUnitBodyType, "VPDINFO 56: 03 c0 CODE"}, {&V::setSoftwareType, "MCG 60: 80 01 LPP"}};

TEST(VpdRecordTest, EachFlagHasItsPlaceInBothForms)
{
  V cleared(ByteString(208, 0xFF));
  for (const auto& [set, row] : kFlags) {
    std::istringstream words(row);
    std::string on, byte, wire, build, off;
    words >> on >> byte >> wire >> build >> off;
    V vpd(208);
    set(vpd, on.c_str()), set(cleared, off.c_str());
    for (const char* unknown : {"", "y", "n", "YN", "vpdinfo", "mcg"}) set(vpd, unknown);
    EXPECT_EQ(Hex(vpd.getByteString()), Patched(ByteString(208, 0), byte + build)) << row;
    vpd.Endian();
    EXPECT_EQ(Hex(vpd.getByteString()), Patched(ByteString(208, 0), byte + wire)) << row;
  }
  cleared.Endian();
  EXPECT_EQ(Hex(cleared.getByteString()), Patched(ByteString(208, 0xFF), "56:80ffffef7f3f"));
}

static const std::string kIs = " value in the RUVPD source file is ";
// For each setter: the offset, then values with the bytes that they store; the code and the line of a refused value.
static const std::tuple<std::function<int(S&, const String&)>, std::string, int, std::string> kSsdRows[] = {
    {&S::setNucleusSequenceControl, "24: 0a0B0C0D0E 0a0b0c0d 1234567 01234567", 38, "Nucleus Sequence Control" + kIs},
    {&S::setLinkLoaderBypass, "40: Y 01 N 00", 41, "Link/loader Bypass" + kIs},
    {[](S& ssd, const String& value) { return ssd.setReplaceableUnitDestination(value); },
     "41: NUC1 01 NUC2 02 NUC3 0c SERV 03 IDE 04 IBLA 05 DBLA 06 CBLA 07 MRI 08 PBLA 09 MACH 10 MCHP 11 SU36 0b "
     "USER 20 USRP 21 *MCG 40 IOP1 81 IOP2 82 IOP3 84 IOP4 88 RULL 0a NUCP 0f SBLA 0e HYP1 31 HYP2 32 NUCB 34 "
     "PHYP1 50 PNUC1 51 PDBLA 52 PHYP2 53 PNUC2 54 PCBLA 55 PIBLA 56",
     39, "RU Destination" + kIs},
    {&S::setDeleteReplaceableUnit, "42: Y 01 N 00", 42, "Delete RU" + kIs},
    {&S::setOnlineLLFlag, "43: Y 01 N 00", 47, "Online Link/Loadable Flag is "},
    {&S::setSSDModel,
     "45: VANT0 01 TRIDE 02 HARN 03 VANTL 04 VANT4 05 VNT41 05 TRID1 06 LOSK 07 VAN41 08 VNTA4 08 TOLVEN 09 GLOVA 0a "
     "BRAXEN 0b QUENTARIS 0c BRAXEN_TPA 0d QUENTARIS_TPA 0e FENRIX 10 TERVASCOPIN 11 NONE 00",
     36, "SSD Model" + kIs},
    {&S::setAllowBreakpoints, "46: Y 01 N 00", 37, "Allow Breakpoints" + kIs}};

TEST(SsdRecordTest, AcceptedValuesStoreTheirBytesAndOthersGiveALineAndACode)
{
  for (const auto& [set, values, code, line] : kSsdRows) {
    std::istringstream words(values + " y - YN - X - nuc1 - NUC - vant4 - ABCDEF -");
    std::string offset, value, bytes;
    for (words >> offset; words >> value >> bytes;) {
      const bool refused = bytes == "-";
      S ssd(ByteString(70, 0xAA));
      testing::internal::CaptureStderr();
      EXPECT_EQ(set(ssd, value.c_str()), refused ? code : 0) << offset << value;
      EXPECT_EQ(testing::internal::GetCapturedStderr(), refused ? line + value + ".\n" : "");
      EXPECT_EQ(Hex(ssd.getByteString()), Patched(ByteString(70, 0xAA), refused ? "" : offset + bytes)) << value;
    }
  }
}

TEST(RecordsTest, EndianReversesEachFieldAndNothingBehindTheRecord)
{
  std::string counting;
  while (counting.size() < 300) counting += static_cast<char>(counting.size());
  const ByteString bytes(counting.data(), 300);
  const auto wire = [](auto record) { return record.Endian(), Hex(record.getByteString()); };
  const std::string numbers = "0b0a09080f0e0d0c13121110171615141b1a1918", code = "4ba385a7a3c1d4c5";
  const std::string vpd = "0:03020100,28:c1d1e1f1,56:1c27ce93638f,144:93929190979695949b9a99989f9e9d9ca3a2a1a0";
  EXPECT_EQ(wire(V(bytes)), Patched(bytes, vpd));
  EXPECT_EQ(wire(FileHdr(bytes)), Hex(Raw("01000302070605040b0a09080f0e0d0c11101312")));
  EXPECT_EQ(wire(AuxillaryHdr(bytes)), Patched(bytes, "0:0100030207060504" + numbers));
  ScnHdr section(bytes);
  String longName = "LONGNAME9", name = ".text";
  section.setSectionName(longName), section.setSectionName(name);
  EXPECT_EQ(wire(section), Patched(bytes, "0:" + code + numbers + "1f1e1d1c2120232227262524"));
}

TEST(RecordsTest, ShortInputIsInvalidAndLongInputIsKept)
{
  const auto held = [](const auto& record) { return record.valid() ? Hex(record.getByteString()) : "invalid"; };
  for (unsigned int length = 0; length <= 300; length++) {
    const ByteString bytes(length, 0x5A), filled = bytes + ByteString(40 - std::min(length, 40U), 0);
    EXPECT_EQ(held(V(bytes)), length < 208 ? "invalid" : Hex(bytes)) << length;
    EXPECT_EQ(held(S(bytes)), length < 64 ? "invalid" : Hex(bytes)) << length;
    EXPECT_EQ(held(FileHdr(bytes)), length < 20 ? "invalid" : Hex(ByteString(20, 0x5A))) << length;
    EXPECT_EQ(held(AuxillaryHdr(bytes)), length < 72 ? "invalid" : Hex(bytes)) << length;
    EXPECT_EQ(held(ScnHdr(bytes)), length < 16 ? "invalid" : Hex(filled)) << length;
    EXPECT_TRUE(V(length).valid() == (length >= 208) && S(length).valid() == (length >= 64)) << length;
    EXPECT_TRUE(FileHdr(length).valid() == (length >= 20) && ScnHdr(length).valid() == (length >= 40)) << length;
  }
}

TEST(RecordsDeathTest, AnInvalidRecordFailsItsAssertion)
{
  V vpd(207);
  S ssd(63);
  for (const auto& row : kFlags) EXPECT_DEATH(row.first(vpd, "Y"), "VPDHdrX:.*`valid\\(\\)'") << row.second;
  for (const auto& row : kSsdRows) EXPECT_DEATH(get<0>(row)(ssd, "Y"), "SSDHdrX:.*`valid\\(\\)'") << get<1>(row);
  EXPECT_DEATH(FileHdr(19).setSymPtr(1), "FileHdr:[0-9]+: void FileHdr::setSymPtr \\(long int\\): .*`valid\\(\\)'");
  EXPECT_DEATH(ScnHdr(39).Endian(), "ScnHdr:[0-9]+: void ScnHdr::Endian \\(\\): .*`valid\\(\\)'");
}
