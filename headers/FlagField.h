// Fields of one or more bits in a record's flag word. In wire form the first field begins at the most significant bit
// of the word. In build form a little-endian host has it begin at the least significant bit, and the others follow
// upward; on a big-endian host the two forms are the same.
#pragma once

#include <bit>
#include <cstdint>
#include <limits>
#include <span>

#include "foundation/BasicTypes.h"

struct FlagField {
  unsigned int first;  // in wire form, counted from the most significant bit of the word
  unsigned int width;  // bits

  constexpr std::uint32_t ones() const { return (std::uint32_t{1} << width) - 1; }
};

template <class Word>
constexpr unsigned int bitsOf = std::numeric_limits<Word>::digits;

// Whether the fields follow each other without gap or overlap and fill the word.
template <class Word>
constexpr boolean FillWord(std::span<const FlagField> fields)
{
  unsigned int next = 0;
  for (const FlagField& field : fields) {
    if (field.first != next) return false;
    next += field.width;
  }
  return next == bitsOf<Word>;
}

// How many bits of the word are less significant than the field.
template <class Word>
constexpr unsigned int WireShift(const FlagField& field)
{
  return bitsOf<Word> - field.first - field.width;
}

template <class Word>
constexpr unsigned int BuildShift(const FlagField& field)
{
  return std::endian::native == std::endian::little ? field.first : WireShift<Word>(field);
}

// Stores the field's value in a word in build form.
template <class Word>
void SetFlagField(Word& word, const FlagField& field, std::uint32_t value)
{
  const unsigned int shift = BuildShift<Word>(field);
  const std::uint32_t others = word & ~(field.ones() << shift);
  word = static_cast<Word>(others | (value & field.ones()) << shift);
}

// Moves every field of a word in build form to its place in wire form. The word stays a number of the host, so its
// bytes are still to be ordered.
template <class Word>
void MoveToWireForm(Word& word, std::span<const FlagField> fields)
{
  const std::uint32_t build = word;
  std::uint32_t wire = 0;
  for (const FlagField& field : fields) {
    wire |= (build >> BuildShift<Word>(field) & field.ones()) << WireShift<Word>(field);
  }
  word = static_cast<Word>(wire);
}
