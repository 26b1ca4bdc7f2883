#include <functional>
#include <sstream>

#include "headers/AuxillaryHdr.h"
#include "headers/FileHdr.h"
#include "headers/KespHeader.h"
#include "headers/SSDHdrX.h"
#include "headers/ScnHdr.h"
#include "headers/VPDHdrX.h"
#include "tests/TestSupport.h"

using V = VitalProductDataHeaderX;
using S = SystemSpecificDataHeaderX;

static std::string Patched(ByteString bytes, const std::vector<std::pair<unsigned int, std::string>>& patches)
{
  for (const auto& [offset, hex] : patches) bytes.replace(offset, Bytes(hex).length(), Bytes(hex));
  return Hex(bytes);
}

// `on` sets bits of zeros, `off` clears them of ones, no other value changes any; the byte before and after Endian().
static void ExpectFlag(const std::function<void(V&, const String&)>& set, const char* on, const char* off,
                       unsigned int offset, const char* build, const char* wire, const char* cleared)
{
  SCOPED_TRACE(testing::Message() << on << " in byte " << offset << ": " << wire);
  V vpd(208), full(ByteString(208, 0xFF));
  set(full, off);
  for (const char* value : {on, "", "y", "n", "YN", "vpdinfo", "mcg"}) set(vpd, value);
  EXPECT_EQ(Hex(vpd.getByteString()), Patched(ByteString(208, 0), {{offset, build}}));
  EXPECT_EQ(InFileOrder(vpd), Patched(ByteString(208, 0), {{offset, wire}}));
  EXPECT_EQ(InFileOrder(full), Patched(ByteString(208, 0xFF), {{offset, cleared}}));
}

TEST(VpdRecordTest, EachFlagHasItsPlaceInBothFormsAndOnlyItsValuesChangeIt)
{
  ExpectFlag(&V::setHardwareDependency, "Y", "N", 56, "02", "40", "bf");
  ExpectFlag(&V::setSoftwareDependency, "Y", "N", 56, "04", "20", "df");
  ExpectFlag(&V::setReplaceableUnitChangeLid, "Y", "N", 56, "08", "10", "ef");
  ExpectFlag(&V::setReplaceableUnitSelfLoad, "Y", "N", 56, "10", "08", "f7");
  ExpectFlag(&V::setReplaceableUnitFlashLoad, "Y", "N", 56, "20", "04", "fb");
  ExpectFlag(&V::setReplaceableUnitBodyType, "VPDINFO", "CODE", 56, "c0", "03", "fc");
  ExpectFlag(&V::setReplaceableUnitBodyType, "PFGINFO", "SFGINFO", 56, "80", "02", "fd");
  ExpectFlag(&V::setReplaceableUnitBodyType, "SFGINFO", "PFGINFO", 56, "40", "01", "fe");
  ExpectFlag(&V::setReplaceableUnitBaseLoad, "Y", "N", 59, "08", "10", "ef");
  ExpectFlag(&V::setSoftwareType, "MCG", "LPP", 60, "01", "80", "7f");
  ExpectFlag(&V::setDevelopedByVelmor, "N", "Y", 61, "01", "80", "7f");
  ExpectFlag(&V::setDevelopedForVelmor, "N", "Y", 61, "02", "40", "bf");
}

TEST(RecordsTest, TextsAndNumbersFillTheirFieldsAndComeBack)
{
  V vpd(208);
  vpd.setReplaceableUnitName("abc");
  vpd.setReplaceableUnitLoadId("00000000");
  EXPECT_EQ(Text(vpd.getReplaceableUnitName()), "ABC     ");
  vpd.setVitalProductDataBodyOffset();
  EXPECT_EQ(vpd.getVitalProductDataBodyOffset(), 208U);
  EXPECT_EQ(Hex(vpd.getByteString()(56, 4)), "00 00 00 00");
  S ssd(ByteString(64, 0xAA));
  for (const char* name : {"LONGNAME9", "abc", ""}) ssd.setReplaceableUnitName(name);
  for (const char* option : {"VORN", "vorn"}) ssd.setReplaceableUnitTypeOption(option);
  EXPECT_EQ(Hex(ssd.getByteString()(32, 13)), "81 82 83 c7 d5 c1 d4 c5 aa aa aa aa 01");
}

using Coded = std::pair<const char*, const char*>;  // a value and the bytes that it stores
static const std::vector<Coded> kYesNo = {{"Y", "01"}, {"N", "00"}};
static const std::vector<Coded> kSequences = {{"0a0B0C0D0E", "0a0b0c0d"}, {"1234567", "01234567"}};
static const std::vector<Coded> kDestinations = {
    {"NUC1", "01"},  {"NUC2", "02"},  {"NUC3", "0c"},  {"SERV", "03"},  {"IDE", "04"},   {"IBLA", "05"},
    {"DBLA", "06"},  {"CBLA", "07"},  {"MRI", "08"},   {"PBLA", "09"},  {"MACH", "10"},  {"MCHP", "11"},
    {"SU36", "0b"},  {"USER", "20"},  {"USRP", "21"},  {"*MCG", "40"},  {"IOP1", "81"},  {"IOP2", "82"},
    {"IOP3", "84"},  {"IOP4", "88"},  {"RULL", "0a"},  {"NUCP", "0f"},  {"SBLA", "0e"},  {"HYP1", "31"},
    {"HYP2", "32"},  {"NUCB", "34"},  {"PHYP1", "50"}, {"PNUC1", "51"}, {"PDBLA", "52"}, {"PHYP2", "53"},
    {"PNUC2", "54"}, {"PCBLA", "55"}, {"PIBLA", "56"}};
static const std::vector<Coded> kModels = {
    {"VANT0", "01"},         {"VANTL", "04"},  {"VANT4", "05"},       {"VNT41", "05"},     {"TRIDE", "02"},
    {"TRID1", "06"},         {"HARN", "03"},   {"LOSK", "07"},        {"VAN41", "08"},     {"VNTA4", "08"},
    {"TOLVEN", "09"},        {"GLOVA", "0a"},  {"BRAXEN", "0b"},      {"QUENTARIS", "0c"}, {"BRAXEN_TPA", "0d"},
    {"QUENTARIS_TPA", "0e"}, {"FENRIX", "10"}, {"TERVASCOPIN", "11"}, {"NONE", "00"}};

// The setter stores the bytes of each accepted value at `offset` and meets other values with its line and code.
static void ExpectCoded(int (S::*set)(const String&), unsigned int offset, std::vector<Coded> rows, int refusal,
                        const std::string& line)
{
  for (const char* other : {"", "y", "YN", "X", "nuc1", "NUC", "vant4", "ABCDEF"}) rows.emplace_back(other, "");
  for (const auto& [value, hex] : rows) {
    SCOPED_TRACE(line + value);
    S ssd(ByteString(70, 0xAA));
    testing::internal::CaptureStderr();
    EXPECT_EQ((ssd.*set)(value), *hex != 0 ? 0 : refusal);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), *hex != 0 ? "" : line + value + ".\n");
    EXPECT_EQ(Hex(ssd.getByteString()), Patched(ByteString(70, 0xAA), {{offset, hex}}));
  }
}

TEST(SsdRecordTest, AcceptedValuesStoreTheirBytesAndOthersGiveALineAndACode)
{
  const std::string is = " value in the RUVPD source file is ";
  ExpectCoded(&S::setNucleusSequenceControl, 24, kSequences, 38, "Nucleus Sequence Control" + is);
  ExpectCoded(&S::setLinkLoaderBypass, 40, kYesNo, 41, "Link/loader Bypass" + is);
  ExpectCoded(&S::setReplaceableUnitDestination, 41, kDestinations, 39, "RU Destination" + is);
  ExpectCoded(&S::setDeleteReplaceableUnit, 42, kYesNo, 42, "Delete RU" + is);
  ExpectCoded(&S::setOnlineLLFlag, 43, kYesNo, 47, "Online Link/Loadable Flag is ");
  ExpectCoded(&S::setSSDModel, 45, kModels, 36, "SSD Model" + is);
  ExpectCoded(&S::setAllowBreakpoints, 46, kYesNo, 37, "Allow Breakpoints" + is);
}

TEST(RecordsTest, EndianReversesEachNumberAndNothingAfterTheRecord)
{
  std::string counting;
  while (counting.size() < 300) counting += static_cast<char>(counting.size());
  const ByteString bytes(counting.data(), 300);
  const std::string six = "0b0a0908 0f0e0d0c 13121110 17161514 1b1a1918 ", code = "4ba385a7a3c1d4c5";
  const std::string lastFive = "93929190 97969594 9b9a9998 9f9e9d9c a3a2a1a0";
  EXPECT_EQ(InFileOrder(V(bytes)),
            Patched(bytes, {{0, "03020100"}, {28, "c1d1e1f1"}, {56, "1c27ce93 638f"}, {144, lastFive}}));
  EXPECT_EQ(InFileOrder(FileHdr(bytes)), Hex(Raw("0100 0302 07060504 0b0a0908 0f0e0d0c 1110 1312")));
  EXPECT_EQ(FileHdr(bytes).getMagicNumber(), 0x0100);
  EXPECT_EQ(InFileOrder(AuxillaryHdr(bytes)), Patched(bytes, {{0, "0100 0302 07060504" + six}}));
  ScnHdr section(bytes);
  for (String name : {"LONGNAME9", ".text"}) section.setSectionName(name);
  EXPECT_EQ(InFileOrder(section), Patched(bytes, {{0, code + six + "1f1e1d1c 2120 2322 27262524"}}));
}

template <class Record>
static std::string Held(const Record& record)
{
  std::ostringstream out;
  WriteStream stream(&out);
  EXPECT_TRUE(record.writeHeader(stream));
  EXPECT_EQ(Hex(out.str()), record.valid() ? Hex(record.getByteString()) : "");
  stream.setFailure();
  EXPECT_FALSE(record.writeHeader(stream));
  return record.valid() ? Hex(out.str()) : "invalid";
}

TEST(RecordsTest, ShortInputIsInvalidAndLongInputIsKept)
{
  for (unsigned int length = 0; length <= 300; length++) {
    SCOPED_TRACE(length);
    const ByteString bytes(length, 0x5A), filled = bytes + ByteString(40 - std::min(length, 40U), 0x00);
    const std::string zeros = Hex(ByteString(length, 0x00));
    EXPECT_EQ(Held(V(bytes)), length < 208 ? "invalid" : Hex(bytes));
    EXPECT_EQ(Held(S(bytes)), length < 64 ? "invalid" : Hex(bytes));
    EXPECT_EQ(Held(FileHdr(bytes)), length < 20 ? "invalid" : Hex(ByteString(20, 0x5A)));
    EXPECT_EQ(Held(AuxillaryHdr(bytes)), length < 72 ? "invalid" : Hex(bytes));
    EXPECT_EQ(Held(ScnHdr(bytes)), length < 16 ? "invalid" : Hex(filled));
    EXPECT_EQ(Held(V(length)), length < 208 ? "invalid" : zeros);
    EXPECT_EQ(Held(S(length)), length < 64 ? "invalid" : zeros);
    EXPECT_EQ(Held(FileHdr(length)), length < 20 ? "invalid" : zeros);
    EXPECT_EQ(Held(AuxillaryHdr(length)), length < 28 ? "invalid" : zeros);
    EXPECT_EQ(Held(ScnHdr(length)), length < 40 ? "invalid" : zeros);
    EXPECT_EQ(Held(KespHeader(length)).substr(0, 7), length < 104 ? "invalid" : "22 02 0");
  }
}

TEST(RecordsDeathTest, AnInvalidRecordFailsItsAssertion)
{
  EXPECT_DEATH(V(207).setProductId("A"), "VPDHdrX:[0-9]+: void VitalProductDataHeaderX::setProductId .*`valid\\(\\)'");
  EXPECT_DEATH(S(63).setSSDModel("NONE"), "SSDHdrX:[0-9]+: int SystemSpecificDataHeaderX::setSSD.*`valid\\(\\)'");
  EXPECT_DEATH(FileHdr(19).setSymPtr(1), "FileHdr:[0-9]+: void FileHdr::setSymPtr \\(long int\\): .*`valid\\(\\)'");
  EXPECT_DEATH(ScnHdr(39).Endian(), "ScnHdr:[0-9]+: void ScnHdr::Endian \\(\\): .*`valid\\(\\)'");
  EXPECT_DEATH(KespHeader(103).getByteString(),
               "KespHeader:.* KespHeader::getByteString \\(\\) const: .*`valid\\(\\)'");
  EXPECT_DEATH(KespHeader(103).holdsLidDateTime(), "KespHeader::holdsLidDateTime \\(\\) const: .*`valid\\(\\)'");
}
