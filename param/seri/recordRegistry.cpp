#include <param/seri/recordRegistry.h>

#include <algorithm>

namespace param {

namespace {

std::vector<RecordType>& registry() {
  static std::vector<RecordType> types;
  return types;
}

}  // namespace

std::vector<RecordType> RecordRegistry::types() {
  std::vector<RecordType> sorted = registry();
  std::sort(sorted.begin(), sorted.end(),
            [](const RecordType& a, const RecordType& b) { return a.name < b.name; });
  return sorted;
}

const RecordType* RecordRegistry::find(std::string_view name) {
  for (const RecordType& t : registry()) {
    if (t.name == name) return &t;
  }
  return nullptr;
}

const RecordType* RecordRegistry::find(std::type_index type) {
  for (const RecordType& t : registry()) {
    if (t.type == type) return &t;
  }
  return nullptr;
}

void RecordRegistry::add(const RecordType& type) {
  if (find(type.name) == nullptr) registry().push_back(type);
}

}  // namespace param
