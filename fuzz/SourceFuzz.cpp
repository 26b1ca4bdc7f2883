// A source's bytes through the source reader and the header builder: what is stored against a second parser, the header
// block against its layout.
#include <cerrno>
#include <iostream>
#include <map>

#include "builder/Morvik.h"
#include "builder/MorvikCreateHeader.h"
#include "fuzz/FuzzInput.h"
#include "headers/VPDHdrX.h"
#include "source/MapStringString.h"
#include "source/SPAOption.h"
#include "source/SPASourceProgram.h"

static std::map<string, string> Parsed(const string& source, boolean restricted)
{
  static const string known = "\nPRODUCTID\nINSTRSET\nSWRTYPE\nDEVELBY\nDEVELFOR\nDEVLABID\nVERLEVEL\nRELMODLVL\n";
  std::map<string, string> table;
  std::istringstream lines(source);
  for (string line; std::getline(lines, line);) {
    std::erase_if(line, [](char ch) { return ch == ' ' || (ch >= '\t' && ch <= '\r'); });
    if (line.find_first_of(":*!") != 0) continue;
    for (const char mark : {'!', '*', ':'}) line.erase(0, line.find_first_not_of(mark));
    const string label = line.substr(0, line.find('.'));
    line.erase(0, label.size());
    line.erase(0, line.find_first_not_of('.'));
    if (!restricted || known.find('\n' + label + '\n') != string::npos) table[label] = line;
  }
  return table;
}

static void CheckBlock(const ByteString& block, const String& member)
{
  const unsigned int nameLength = member.length() > 8 ? member.length() + 1 : 0;
  Require(block.length() == 512 + nameLength, "length of the block");
  VitalProductDataHeaderX vpd(block);
  vpd.Endian();
  const ByteString wire = vpd.getByteString();
  const String constants = (wire(4, 4) + wire(25, 3) + wire(64, 14) + wire(144, 12) + wire[252]).toHexString();
  Require(constants == "00000000e5d7c4f2f0f2f6f0f3f1f4f0f9f2f6f2f00000020000000000000000d002", constants);
  Require(wire(272, 240).equal(ByteString(240, 0)), "zeros up to the body");
  Require(nameLength == 0 || wire(240, 8).toHexString() == "0000000000000200", "offset of a long name");
}

void FuzzSource(FuzzInput input)
{
  static const char* const types[] = {".lidhdr", ".vpdinfo", ".SFGINFO", ".pfginfo", "", ".x"};
  std::cerr.rdbuf(nullptr);  // the messages go nowhere, which is no interrupted call
  errno = EINTR;
  OptionTable().clear();
  boolean restricted = input.byte() % 2 == 1;
  const String member("PART1LONGNAME", 1 + input.byte() % 12);
  const String name = "units/" + member + types[input.byte() % std::size(types)];
  std::istringstream stream(input.rest);
  ReadStream in(&stream);
  Require(SPASourceProgram().read(in, restricted) == 0, "a text in memory can be read");
  const auto table = Parsed(input.rest, restricted);
  Require(OptionTable().count() == table.size(), "nothing else is stored");
  MapStringString copy(OptionTable()), left(copy);
  for (const auto& [label, value] : table) {
    Require(copy.includes(ToString(label)) == 1 && copy.get(ToString(label)) == ToString(value), "it is stored");
    left.remove(ToString(label));
  }
  Morvik builder;
  Require(builder.morvikParse(name, "20260314", "092620") == 0, "name, date and time are taken");
  const int code = MorvikCreateHeader(&builder);
  Require((code == 48) == (member.length() > 8 && !table.contains("RUNAME")), "48 tells that there is no name");
  if (code == 0) return CheckBlock(builder.morvikGetHeader(), member);
  const string codes = " 36 37 39 41 42 44 45 46 47 48 ";
  Require(codes.find(' ' + std::to_string(code) + ' ') != string::npos, "a refusal has its code");
  Require(builder.morvikGetHeader().empty(), "a refusal leaves no header");
}
