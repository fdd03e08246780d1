#include "platform/file_node.h"

#include <algorithm>
#include <utility>

#include "platform/run_time_error.h"
#include "platform/text.h"

namespace memory {

using platform::text::upper;

namespace {

bool isLetterOrDigit(wchar_t c) {
  return (c >= L'A' && c <= L'Z') || (c >= L'0' && c <= L'9') || c == L'_' || c == L'-' ||
         c == L'~';
}

/// The text in upper case, without blanks and dots. Characters that a short name cannot have become
/// "_".
std::wstring withoutOthers(const std::wstring& text) {
  std::wstring result = upper(text);
  std::erase_if(result, [](wchar_t c) { return c == L' ' || c == L'.'; });
  std::replace_if(
      result.begin(), result.end(), [](wchar_t c) { return !isLetterOrDigit(c); }, L'_');
  return result;
}

}  // namespace

void FileSystem::Node::setName(const std::wstring& newName) {
  name = newName;
  upperName_ = upper(newName);
}

void FileSystem::Node::nameShortly() {
  const Node* root = this;
  while (root->parent != nullptr) {
    root = root->parent;
  }
  if (root == this || !root->givesShortNames) {
    return;
  }
  shortName.clear();
  if (isShortName(name)) {
    return;
  }
  const std::size_t dot = std::min(name.rfind(L'.'), name.size());
  constexpr std::size_t mostBefore = 6;
  constexpr std::size_t mostBehind = 4;
  const std::wstring before = withoutOthers(name.substr(0, dot)).substr(0, mostBefore);
  const std::wstring behind =
      dot == name.size() ? L"" : L"." + withoutOthers(name.substr(dot + 1, mostBehind - 1));
  std::wstring made;
  for (int n = 1; made.empty() || parent->child(made) != nullptr; ++n) {
    made = before + L"~" + std::to_wstring(n) + behind;
  }
  shortName = made;
}

FileSystem::Node* FileSystem::Node::child(const std::wstring& wanted) const {
  const std::wstring key = upper(wanted);
  const auto found = std::find_if(children.begin(), children.end(), [&key](const auto& entry) {
    return entry->upperName_ == key ||
           (!entry->shortName.empty() && upper(entry->shortName) == key);
  });
  return found == children.end() ? nullptr : found->get();
}

FileSystem::Node& FileSystem::Node::add(const std::wstring& newName) {
  auto node = std::make_unique<Node>();
  node->setName(newName);
  adopt(std::move(node));
  return *children.back();
}

FileSystem::Node& FileSystem::Node::make(const std::wstring& newName) {
  if (isProtected) {
    throw platform::RunTimeError(platform::error::pathFileAccess);
  }
  return add(newName);
}

void FileSystem::Node::adopt(std::unique_ptr<Node> node) {
  node->parent = this;
  children.push_back(std::move(node));
  children.back()->nameShortly();
}

std::unique_ptr<FileSystem::Node> FileSystem::Node::drop(const Node& node) {
  const auto found = std::find_if(children.begin(), children.end(),
                                  [&node](const auto& entry) { return entry.get() == &node; });
  (*found)->leaveToSecondName();
  auto dropped = std::move(*found);
  children.erase(found);
  return dropped;
}

void FileSystem::Node::leaveToSecondName() {
  for (const auto& entry : parent->children) {
    if (entry->secondOf == this) {
      entry->secondOf = nullptr;
      entry->become(*this);
    }
  }
}

void FileSystem::Node::become(const Node& other) {
  bytes = other.bytes;
  modified = other.modified;
  id = other.id;
  hidden = other.hidden;
  system = other.system;
  readOnly = other.readOnly;
}

unsigned FileSystem::Node::attributes() const {
  return (hidden ? platform::files::hidden : 0U) | (system ? platform::files::system : 0U) |
         (folder ? platform::files::directory : 0U);
}

platform::files::Stamp FileSystem::Node::stamp() const {
  return {true, modified, bytes.size(), id};
}

bool FileSystem::Node::matches(const std::wstring& pattern) const {
  const std::wstring wanted = upper(pattern);
  return fits(upperName_, wanted) || (!shortName.empty() && fits(upper(shortName), wanted));
}

void FileSystem::Node::refuseDeletion() const {
  if (folder || readOnly || parent->isProtected) {
    throw platform::RunTimeError(platform::error::pathFileAccess);
  }
  if (locked) {
    throw platform::RunTimeError(platform::error::permissionDenied);
  }
}

bool isName(const std::wstring& name) {
  return std::none_of(name.begin(), name.end(), [](wchar_t c) {
    return c < L' ' || std::wstring_view(L"<>:\"/\\|?*").find(c) != std::wstring_view::npos;
  });
}

bool isShortName(const std::wstring& name) {
  const std::wstring wanted = upper(name);
  const std::size_t dot = std::min(wanted.find(L'.'), wanted.size());
  const std::wstring before = wanted.substr(0, dot);
  const std::wstring behind = dot == wanted.size() ? L"" : wanted.substr(dot + 1);
  constexpr std::size_t mostBefore = 8;
  constexpr std::size_t mostBehind = 3;
  return !before.empty() && before.size() <= mostBefore && behind.size() <= mostBehind &&
         std::all_of(before.begin(), before.end(), isLetterOrDigit) &&
         std::all_of(behind.begin(), behind.end(), isLetterOrDigit);
}

PathParts splitPath(const std::wstring& path) {
  PathParts parts;
  if (path.find(L'\0') != std::wstring::npos) {
    return parts;
  }
  std::wstring rest = path;
  std::replace(rest.begin(), rest.end(), L'/', L'\\');
  if (rest.starts_with(L"\\\\?\\")) {
    rest.erase(0, 4);
  }
  if (rest.size() >= 2 && rest[1] == L':') {
    parts.drive = rest.substr(0, 2);
    rest.erase(0, 2);
  } else if (rest.starts_with(L"\\\\")) {
    const auto share = rest.find(L'\\', 2);
    const auto end = share == std::wstring::npos ? share : rest.find(L'\\', share + 1);
    parts.drive = rest.substr(0, end);
    rest.erase(0, parts.drive.size());
  }
  parts.valid = true;
  parts.endsInSeparator = rest.ends_with(L'\\');
  for (std::size_t from = 0; from < rest.size();) {
    const auto end = std::min(rest.find(L'\\', from), rest.size());
    std::wstring name = rest.substr(from, end - from);
    from = end + 1;
    if (name == L"..") {
      if (!parts.names.empty()) {
        parts.names.pop_back();
      }
      continue;
    }
    // The system removes dots and blanks from the end of every component.
    name.erase(name.find_last_not_of(L". ") + 1);
    if (name.empty()) {
      continue;
    }
    parts.names.push_back(name);
    const bool last = from >= rest.size();
    parts.valid = parts.valid && (last || isName(name));
  }
  return parts;
}

bool fits(const std::wstring& name, const std::wstring& pattern) {
  if (pattern == L"*.*") {
    return true;
  }
  if (pattern.find_first_of(L"*?") == std::wstring::npos) {
    return name == pattern;
  }
  // Row by row: which prefixes of the name match the prefix of the pattern so far.
  std::vector<bool> reached(name.size() + 1, false);
  reached[0] = true;
  for (const wchar_t wanted : pattern) {
    std::vector<bool> next(name.size() + 1, false);
    for (std::size_t at = 0; at <= name.size(); ++at) {
      const bool here = reached[at];
      const bool before = at > 0 && reached[at - 1];
      if (wanted == L'*') {
        next[at] = here || (at > 0 && next[at - 1]);
      } else if (wanted == L'?') {
        next[at] = before || (here && (at == name.size() || name[at] == L'.'));
      } else {
        next[at] = before && name[at - 1] == wanted;
      }
    }
    reached = std::move(next);
  }
  return reached[name.size()];
}

}  // namespace memory
