#include "source/MapStringString.h"

#include "foundation/Assertion.h"

namespace {

// The assertions of the map name the option table's source and one line of it.
void AssertMap(bool holds, const char* expression, const char* function)
{
  Assert(holds, expression, "SPAOption", function, 19);
}

}  // namespace

MapStringString& MapStringString::operator=(const MapStringString& other)
{
  if (head == other.head) return *this;
  entries = other.entries;
  assign(other);
  return *this;
}

MapNodeStringString* MapStringString::search(const String& key) const
{
  MapNodeStringString* node = head;
  while (node != nullptr && key > node->key) node = node->next;
  return node != nullptr && node->key == key ? node : nullptr;
}

// The link to the first node whose key is not smaller, which is the last link when all are; `previous` becomes the
// node that holds the link, null for `head`.
MapNodeStringString*& MapStringString::linkTo(const String& key, MapNodeStringString*& previous)
{
  previous = nullptr;
  MapNodeStringString** link = &head;
  while (*link != nullptr && key > (*link)->key) {
    previous = *link;
    link = &previous->next;
  }
  return *link;
}

void MapStringString::add(const String& key, const String& value)
{
  AssertMap(includes(key) == 0, "!includes(key)", "void MapStringString::add (const String &, const String &)");
  MapNodeStringString* previous = nullptr;
  MapNodeStringString*& link = linkTo(key, previous);
  auto* node = new MapNodeStringString(key, value);
  node->next = link;
  link = node;
  if (node->next == nullptr) tail = node;
  entries++;
}

void MapStringString::replace(const String& key, const String& value)
{
  MapNodeStringString* node = search(key);
  AssertMap(node != nullptr, "node != 0", "void MapStringString::replace (const String &, const String &)");
  node->value = value;
}

const String& MapStringString::get(const String& key) const
{
  const MapNodeStringString* node = search(key);
  AssertMap(node != nullptr, "node != 0", "const String &MapStringString::get (const String &) const");
  return node->value;
}

String& MapStringString::get(const String& key)
{
  MapNodeStringString* node = search(key);
  AssertMap(node != nullptr, "node != 0", "String &MapStringString::get (const String &)");
  return node->value;
}

void MapStringString::remove(const String& key)
{
  AssertMap(includes(key) == 1, "includes(key)", "void MapStringString::remove (const String &)");
  MapNodeStringString* previous = nullptr;
  MapNodeStringString*& link = linkTo(key, previous);
  MapNodeStringString* removed = link;
  link = removed->next;
  if (removed == tail) tail = previous;
  delete removed;
  entries--;
}

void MapStringString::put(const String& key, const String& value)
{
  if (includes(key) == 1) {
    replace(key, value);
  } else {
    add(key, value);
  }
}

void MapStringString::clear()
{
  while (head != nullptr) {
    MapNodeStringString* next = head->next;
    delete head;
    head = next;
  }
  tail = nullptr;
  entries = 0;
}

void MapStringString::assign(const MapStringString& other)
{
  const MapNodeStringString* from = other.head;
  MapNodeStringString* reused = nullptr;
  MapNodeStringString** link = &head;
  while (from != nullptr && *link != nullptr) {
    reused = *link;
    reused->key = from->key;
    reused->value = from->value;
    link = &reused->next;
    from = from->next;
  }
  MapNodeStringString* left = *link;
  *link = nullptr;
  tail = reused;
  while (left != nullptr) {
    MapNodeStringString* next = left->next;
    delete left;
    left = next;
  }
  for (; from != nullptr; from = from->next) append(new MapNodeStringString(from->key, from->value));
}

void MapStringString::append(MapNodeStringString* node)
{
  (tail != nullptr ? tail->next : head) = node;
  tail = node;
}
