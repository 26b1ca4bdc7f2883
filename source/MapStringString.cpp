#include "source/MapStringString.h"

#include "foundation/Assertion.h"

namespace {

// The assertions of the map name the option table's source and one line of it.
void AssertMap(boolean holds, const char* expression, AssertingFunction function)
{
  function.line = 19;
  Assert(holds, expression, "SPAOption", function);
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

// The place of the key: the link to the first node whose key is not smaller, which is the last link when all are, and
// the node that holds this link, null for `head`.
MapStringString::Place MapStringString::placeOf(const String& key)
{
  Place place = {&head, nullptr};
  while (*place.link != nullptr && key > (*place.link)->key) {
    place.previous = *place.link;
    place.link = &place.previous->next;
  }
  return place;
}

boolean MapStringString::holds(const Place& place, const String& key)
{
  return *place.link != nullptr && (*place.link)->key == key;
}

void MapStringString::insert(const Place& place, const String& key, const String& value)
{
  auto* node = new MapNodeStringString(key, value);
  node->next = *place.link;
  *place.link = node;
  if (node->next == nullptr) tail = node;
  entries++;
}

void MapStringString::add(const String& key, const String& value)
{
  const Place place = placeOf(key);
  AssertMap(!holds(place, key), "!includes(key)", "void MapStringString::add (const String &, const String &)");
  insert(place, key, value);
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
  const Place place = placeOf(key);
  AssertMap(holds(place, key), "includes(key)", "void MapStringString::remove (const String &)");
  MapNodeStringString* removed = *place.link;
  *place.link = removed->next;
  if (removed == tail) tail = place.previous;
  delete removed;
  entries--;
}

// One walk for both cases: a source stores each of its statements through here.
void MapStringString::put(const String& key, const String& value)
{
  const Place place = placeOf(key);
  if (holds(place, key)) {
    (*place.link)->value = value;
  } else {
    insert(place, key, value);
  }
}

void MapStringString::clear()
{
  deleteFrom(head);
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
  deleteFrom(*link);
  tail = reused;
  for (; from != nullptr; from = from->next) append(new MapNodeStringString(from->key, from->value));
}

// Ends the list at the link and deletes what followed.
void MapStringString::deleteFrom(MapNodeStringString*& link)
{
  MapNodeStringString* node = link;
  link = nullptr;
  while (node != nullptr) {
    MapNodeStringString* next = node->next;
    delete node;
    node = next;
  }
}

void MapStringString::append(MapNodeStringString* node)
{
  (tail != nullptr ? tail->next : head) = node;
  tail = node;
}
