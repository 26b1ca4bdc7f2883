// String against std::string. The input chooses the operations and their arguments, which may be the string itself or
// point into its block.
#include <cctype>

#include "fuzz/FuzzInput.h"

// What is seen of a text with a NUL in it.
static string View(const string& text) { return text.substr(0, text.find('\0')); }

static void Same(const String& s, const string& model)
{
  Require(string(static_cast<const char*>(s), s.length() + 1) == model + '\0', model.c_str());
}

// A replacement that could form what is searched for ever is left out.
static void Substitute(String& s, string& model, const String& from, const String& to)
{
  const string searched = static_cast<const char*>(from), put = static_cast<const char*>(to), view = View(model);
  if (put.size() >= searched.size() && put.find_first_of(searched) != string::npos) return;
  s.substitute(from, to);
  if (searched.empty() || view.find(searched) == string::npos) return;
  model = view;
  for (std::size_t i = 0; (i = model.find(searched)) != string::npos;) model.replace(i, searched.size(), put);
}

// What was cut off up to a separator, which is gone too.
static void Cut(const String& cut, string& model, const string& separator)
{
  const std::size_t end = View(model).find(separator);
  Same(cut, model.substr(0, end == string::npos ? 0 : end));
  if (end != string::npos) model.erase(0, end + separator.size());
}

static void Read(String& s, string& model, const string& file, unsigned int kinds, char delimiter)
{
  std::istringstream in(file), same(file);
  for (; kinds != 0; kinds /= 3) {
    model.clear();
    RunOne(
        kinds, [&] { s.getLine(in, delimiter), std::getline(same, model, delimiter); },
        [&] { s.getWord(in), (same >> model).eof() ? same.setstate(std::ios_base::failbit) : void(); },
        [&] { s.get(in, 9), model.resize(9), same.read(model.data(), 9), model.resize(std::size_t(same.gcount())); });
    Same(s, model);
    Require(in.rdstate() == same.rdstate() && in.rdbuf()->in_avail() == same.rdbuf()->in_avail(), "what was taken");
  }
}

void FuzzString(FuzzInput input)
{
  String s;
  string m;
  while (!input.rest.empty()) {
    const unsigned int number = input.byte(), flags = input.byte(), b = input.byte(), count = b < 255 ? b : UINT32_MAX;
    const char ch = static_cast<char>(input.byte());
    const bool inside = flags % 2 == 1;
    const string drawn = input.text(), other = inside ? m : drawn;
    const String own = ToString(drawn), third = ToString(input.text());
    const String &text = inside ? s : own, &to = flags % 4 < 2 ? third : s;
    const unsigned int a = b % (s.length() + 1), n = inside ? std::min(flags, s.length() - a) : own.length();
    const char* p = static_cast<const char*>(text) + (inside ? a : 0);
    const string raw(p, n), tail(p), delimiter(other, std::min(View(other).find_first_of(View(m)), other.size()), 1);
    RunOne(
        number, [&] { s.append(p, n), m += raw; }, [&] { s.assign(p, n), m = raw; }, [&] { s += ch, m += ch; },
        [&] { s += p, m += tail; }, [&] { s += text, m += other; }, [&] { s = text, m = other; },
        [&] { m = inside && a == 0 ? m : tail, s = p; }, [&] { s.insert(a, text), m.insert(a, other); },
        [&] { s.insert(a, p), m.insert(a, tail); }, [&] { s.insert(a, ch), m.insert(a, 1, ch); },
        [&] { s.remove(a, count), m.erase(a, count); }, [&] { Same(s(a, count), m.substr(a, count)); },
        [&] { Same(s.strStr(text), View(m).erase(0, View(m).find(View(other)))); },
        [&] { Same(s.strChr(ch), View(m).erase(0, View(m).find(ch))); }, [&] { Substitute(s, m, text, to); },
        [&] { Cut(s.strBreakStr(text), m, View(other)); }, [&] { Cut(s.strTok(text), m, delimiter); },
        [&] { s.toUpper(), std::transform(m.begin(), m.end(), m.begin(), ::toupper); },
        [&] { s.toLower(), std::transform(m.begin(), m.end(), m.begin(), ::tolower); },
        [&] { s.strip(0), m = View(m), m.erase(m.find_last_not_of(' ') + 1); },
        [&] { s.strip(1), m = View(m), m.erase(m.find_last_not_of(' ') + 1), m.erase(0, m.find_first_not_of(' ')); },
        [&] { s.padBlanks(b), m.resize(std::max<std::size_t>(b, m.size()), ' '); }, [&] { s.reSize(b); },
        [&] { Require((s == text) == (m == other) && (s > text) == (m > other) && (s == p) == (m == tail), "=="); },
        [&] { Same(s + text, m + other), Same(s + ch, m + ch), Same(p + s, tail + m); },
        [&] { Read(s, m, drawn, b, ch); });
    Same(s, m);
    if (m.size() > 400) s.clear(), m.clear();
  }
}
