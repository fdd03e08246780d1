// Builds program files with icons, byte by byte.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace icon_program {

/// A number, the lowest byte first.
inline std::string number(std::uint32_t value, std::size_t bytes) {
  std::string text;
  for (std::size_t i = 0; i < bytes; ++i) {
    text += static_cast<char>(value >> (8 * i) & 0xFFU);
  }
  return text;
}

inline std::string word(std::uint32_t value) { return number(value, 2); }
inline std::string doubleWord(std::uint32_t value) { return number(value, 4); }

/// Header of a bitmap of `side` x `side` pixels, as it precedes an icon's pixels.
inline std::string bitmapHead(std::uint32_t side, std::uint32_t bits, std::uint32_t colours = 0) {
  return doubleWord(40) + doubleWord(side) + doubleWord(2 * side) + word(1) + word(bits) +
         std::string(16, '\0') + doubleWord(colours) + doubleWord(0);
}

/// An image of one colour (0xAARRGGBB) at 32 bits a pixel.
inline std::string plainImage(std::uint32_t side, std::uint32_t colour) {
  std::string image = bitmapHead(side, 32);
  for (std::uint32_t i = 0; i < side * side; ++i) {
    image += doubleWord(colour);
  }
  return image + std::string(std::size_t{4} * ((side + 31) / 32) * side, '\0');
}

struct DirectoryEntry {
  std::uint32_t side;
  std::uint32_t bits;
  std::uint32_t name;
};

/// An icon's directory.
inline std::string directory(const std::vector<DirectoryEntry>& entries) {
  std::string bytes = word(0) + word(1) + word(static_cast<std::uint32_t>(entries.size()));
  for (const DirectoryEntry& entry : entries) {
    bytes += number(entry.side, 1) + number(entry.side, 1) + word(0) + word(1) + word(entry.bits) +
             doubleWord(100) + word(entry.name);
  }
  return bytes;
}

/// A resource, in so many languages.
struct Resource {
  std::uint32_t type;
  std::uint32_t name;
  std::string bytes;
  std::uint32_t languages = 1;
};

/// The resource tree, which is at `address` in the loaded program. Each resource has a type of its
/// own or shares it with its neighbours.
inline std::string resourceTree(const std::vector<Resource>& resources, std::uint32_t address) {
  constexpr std::uint32_t branch = 0x80000000U;
  constexpr std::uint32_t head = 16;
  constexpr std::uint32_t entry = 8;
  const auto tableHead = [](std::size_t entries) {
    return std::string(14, '\0') + word(static_cast<std::uint32_t>(entries));
  };
  std::vector<std::pair<std::uint32_t, std::vector<const Resource*>>> types;
  for (const Resource& resource : resources) {
    if (types.empty() || types.back().first != resource.type) {
      types.push_back({resource.type, {}});
    }
    types.back().second.push_back(&resource);
  }
  auto next = static_cast<std::uint32_t>(head + entry * types.size());
  std::string root = tableHead(types.size());
  std::string names;
  std::string languages;
  std::string leaves;
  std::string data;
  for (const auto& [type, members] : types) {
    root += doubleWord(type) + doubleWord(branch | next);
    next += static_cast<std::uint32_t>(head + entry * members.size());
  }
  for (const auto& [type, members] : types) {
    names += tableHead(members.size());
    for (const Resource* const resource : members) {
      names += doubleWord(resource->name) + doubleWord(branch | next);
      next += head + entry * resource->languages;
    }
  }
  const auto leavesAt = next;
  std::uint32_t leaf = leavesAt;
  std::size_t count = 0;
  for (const Resource& resource : resources) {
    count += resource.languages;
  }
  const auto dataAt = static_cast<std::uint32_t>(leavesAt + 16 * count);
  for (const Resource& resource : resources) {
    languages += tableHead(resource.languages);
    for (std::uint32_t language = 0; language < resource.languages; ++language) {
      languages += doubleWord(1033 + language) + doubleWord(leaf);
      leaf += 16;
      leaves += doubleWord(address + dataAt + static_cast<std::uint32_t>(data.size())) +
                doubleWord(static_cast<std::uint32_t>(resource.bytes.size())) + doubleWord(0) +
                doubleWord(0);
    }
    data += resource.bytes;
  }
  return root + names + languages + leaves + data;
}

/// A program file whose only section has these resources. `wide` means a 64-bit program.
inline std::string program(const std::vector<Resource>& resources, bool wide = true) {
  constexpr std::uint32_t address = 0x1000;
  const std::string tree = resourceTree(resources, address);
  const std::uint32_t fields = wide ? 112 : 96;
  const std::string start = "MZ" + std::string(0x3A, '\0') + doubleWord(0x40);
  std::string optional = word(wide ? 0x20B : 0x10B);
  optional += std::string(fields - 4 - optional.size(), '\0') + doubleWord(16);
  optional += std::string(16, '\0') + doubleWord(address) +
              doubleWord(static_cast<std::uint32_t>(tree.size())) + std::string(104, '\0');
  const auto stored = static_cast<std::uint32_t>(start.size() + 24 + optional.size() + 40);
  const std::string head = std::string("PE\0\0", 4) + word(0x8664) + word(1) +
                           std::string(12, '\0') +
                           word(static_cast<std::uint32_t>(optional.size())) + word(0);
  const std::string section =
      std::string(".rsrc\0\0\0", 8) + doubleWord(static_cast<std::uint32_t>(tree.size())) +
      doubleWord(address) + doubleWord(static_cast<std::uint32_t>(tree.size())) +
      doubleWord(stored) + std::string(16, '\0');
  return start + head + optional + section + tree;
}

}  // namespace icon_program
