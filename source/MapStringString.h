// An ordered map from text to text: a singly linked list in strictly ascending order of the keys, compared byte by
// byte. Searching is linear; the few dozen keywords of a source need no more. The map owns its nodes.
#pragma once

#include "foundation/String.h"

struct MapNodeStringString {
  MapNodeStringString(const String& newKey, const String& newValue) : key(newKey), value(newValue) {}

  MapNodeStringString* next = nullptr;
  String key;
  String value;
};

class MapStringString {
 public:
  MapStringString() = default;
  MapStringString(const MapStringString& other) { *this = other; }
  ~MapStringString() { clear(); }
  MapStringString& operator=(const MapStringString& other);

  // The entry of the key, or null.
  MapNodeStringString* search(const String& key) const;
  int includes(const String& key) const { return search(key) != nullptr ? 1 : 0; }
  unsigned int count() const { return entries; }
  // A new entry; the key must not be included.
  void add(const String& key, const String& value);
  // The entry of the key, which must be included: its new value, its value, or its end.
  void replace(const String& key, const String& value);
  const String& get(const String& key) const;
  String& get(const String& key);
  void remove(const String& key);
  // replace when the key is included, else add.
  void put(const String& key, const String& value);
  void clear();
  // The copying step of operator=: makes the entries those of the other map and leaves count() as it is.
  void assign(const MapStringString& other);

 private:
  struct Place {
    MapNodeStringString** link;
    MapNodeStringString* previous;
  };
  Place placeOf(const String& key);
  static boolean holds(const Place& place, const String& key);
  void insert(const Place& place, const String& key, const String& value);
  static void deleteFrom(MapNodeStringString*& link);
  void append(MapNodeStringString* node);

  MapNodeStringString* head = nullptr;
  MapNodeStringString* tail = nullptr;
  unsigned int entries = 0;
};
