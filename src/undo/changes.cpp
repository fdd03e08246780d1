#include "undo/changes.h"

#include <algorithm>
#include <utility>

#include "listfile/suite_lists.h"
#include "platform/files.h"
#include "platform/text.h"
#include "platform/trap.h"

namespace undo {

namespace files = platform::files;
namespace recycle_bin = platform::recycle_bin;

namespace {

std::wstring nameOf(const std::wstring& path) { return path.substr(path.rfind(L'\\') + 1); }

std::wstring refusalOf(const std::wstring& path, const wchar_t* reason) {
  return nameOf(path) + reason + L", nothing changed";
}

bool isThere(const std::wstring& path) { return files::entryAt(path).has_value(); }

std::optional<std::string> bytesAt(const std::wstring& path) {
  return isThere(path) ? std::optional(files::readWhole(path).bytes) : std::nullopt;
}

Way opposite(Way way) { return way == Way::back ? Way::again : Way::back; }

}  // namespace

void ListPart::go(Way way) const {
  modQMKGeneral::rewriteList(path, list_file::Missing::isEmpty, [&](std::string old) {
    return way == Way::back ? patch.takenBack(std::move(old), keyOf)
                            : patch.madeAgain(std::move(old), keyOf);
  });
}

std::wstring BinPart::refusal(Way way) const {
  if (way == Way::again) {
    return isThere(path) ? L"" : refusalOf(path, L" is no longer there");
  }
  if (item && !recycle_bin::holds(*item)) {
    return refusalOf(path, L" is no longer in the Recycle Bin");
  }
  return item && isThere(path) ? refusalOf(path, L" exists") : L"";
}

void BinPart::go(Way way) {
  if (way == Way::again) {
    item = recycle_bin::recycle(path);
  } else if (item) {
    recycle_bin::restore(*item);
    item.reset();
  }
}

std::wstring RenamePart::refusal(Way way) const {
  const std::wstring& source = way == Way::back ? to : from;
  const std::wstring& target = way == Way::back ? from : to;
  if (!isThere(source)) {
    // A try before this one may have come so far.
    return isThere(target) ? L"" : refusalOf(source, L" is no longer there");
  }
  const bool isSame = platform::text::upper(source) == platform::text::upper(target);
  return !isSame && isThere(target) ? refusalOf(target, L" exists") : L"";
}

void RenamePart::go(Way way) const {
  const std::wstring& source = way == Way::back ? to : from;
  const std::wstring& target = way == Way::back ? from : to;
  if (isThere(source)) {
    files::rename(source, target);
  }
}

std::wstring FilePart::refusal(Way /*way*/) const {
  const std::optional<std::string> now = bytesAt(path);
  return now == before || now == after ? L"" : refusalOf(path, L" was changed meanwhile");
}

void FilePart::go(Way way) const {
  const std::optional<std::string>& wanted = way == Way::back ? before : after;
  if (bytesAt(path) == wanted) {
    return;
  }
  if (!wanted) {
    files::remove(path);
    return;
  }
  list_file::rewrite(path, list_file::temporaryBeside(path), list_file::Missing::isEmpty,
                     [&wanted](const std::string& /*old*/) { return *wanted; });
}

std::size_t FilePart::size() const {
  return (before ? before->size() : 0) + (after ? after->size() : 0);
}

std::size_t Changes::size() const {
  std::size_t bytes = 0;
  for (const Part& part : parts_) {
    bytes += std::visit([](const auto& one) { return one.size(); }, part);
  }
  return bytes;
}

bool Changes::isFinal() const {
  return final_ || std::any_of(parts_.begin(), parts_.end(), [](const Part& part) {
           const auto* const deleted = std::get_if<BinPart>(&part);
           return deleted != nullptr && !deleted->item;
         });
}

std::wstring Changes::refusal(Way way) const {
  for (const Part& part : parts_) {
    if (std::wstring text = std::visit([way](const auto& one) { return one.refusal(way); }, part);
        !text.empty()) {
      return text;
    }
  }
  return {};
}

void Changes::go(Way way) {
  std::vector<Part*> order;
  for (Part& part : parts_) {
    order.push_back(&part);
  }
  if (way == Way::back) {
    std::reverse(order.begin(), order.end());
    // A record whose file is still in the bin can be completed later. A file without its record
    // would be forgotten.
    std::stable_partition(order.begin(), order.end(),
                          [](const Part* part) { return !std::holds_alternative<BinPart>(*part); });
  }
  std::size_t done = 0;
  auto failure = platform::trapped([&] {
    for (; done < order.size(); ++done) {
      std::visit([way](auto& one) { one.go(way); }, *order[done]);
    }
  });
  if (!failure) {
    return;
  }
  while (done > 0) {
    --done;
    static_cast<void>(platform::trapped(
        [&] { std::visit([way](auto& one) { one.go(opposite(way)); }, *order[done]); }));
  }
  throw std::move(*failure);
}

void recycle(const std::wstring& path, Changes* changes) {
  BinPart part{path, recycle_bin::recycle(path)};
  if (changes == nullptr) {
    return;
  }
  if (part.item) {
    changes->add(std::move(part));
  } else {
    changes->setFinal();
  }
}

namespace {

void keep(const std::wstring& path, const list_file::KeyOf& keyOf, Changes& changes,
          list_file::Patch patch) {
  if (!patch.empty()) {
    changes.add(ListPart{path, std::move(patch), keyOf});
  }
}

/// Runs an operation on a list that fills in a patch, and keeps that.
template <class Operation>
void kept(const std::wstring& path, const list_file::KeyOf& keyOf, Changes* changes,
          const Operation& operation) {
  list_file::Patch patch;
  operation(changes == nullptr ? nullptr : &patch);
  if (changes != nullptr) {
    keep(path, keyOf, *changes, std::move(patch));
  }
}

}  // namespace

std::optional<list_file::Merged> addRecords(const std::wstring& path, const std::string& bytes,
                                            const list_file::KeyOf& keyOf,
                                            const std::function<void()>& reload, Changes* changes) {
  std::optional<list_file::Merged> merged;
  kept(path, keyOf, changes, [&](list_file::Patch* patch) {
    merged = modQMKGeneral::addRecords(path, bytes, keyOf, reload, patch);
  });
  return merged;
}

void rewriteList(const std::wstring& path, list_file::Missing missing,
                 const std::function<std::string(std::string)>& edit, const list_file::KeyOf& keyOf,
                 Changes* changes) {
  kept(path, keyOf, changes,
       [&](list_file::Patch* patch) { modQMKGeneral::rewriteList(path, missing, edit, patch); });
}

void overwriteList(const std::wstring& path, const std::string& bytes,
                   const list_file::KeyOf& keyOf, Changes* changes) {
  kept(path, keyOf, changes,
       [&](list_file::Patch* patch) { modQMKGeneral::overwriteList(path, bytes, patch); });
}

files::Replaced replaceList(const std::wstring& path, const std::string& bytes,
                            const files::Stamp& expected, const list_file::KeyOf& keyOf,
                            Changes* changes) {
  if (changes == nullptr) {
    return modQMKGeneral::replaceList(path, bytes, expected);
  }
  files::Contents former;
  // What cannot be read has no stamp, and then nobody can say what was replaced.
  static_cast<void>(platform::trapped([&] { former = files::readWhole(path); }));
  const files::Replaced replaced = modQMKGeneral::replaceList(path, bytes, expected);
  if (replaced == files::Replaced::yes) {
    if (former.stamp != expected) {
      changes->setFinal();
    } else {
      keep(path, keyOf, *changes, list_file::Patch(former.bytes, bytes));
    }
  }
  return replaced;
}

void writeFile(const std::wstring& path, Changes* changes, const std::function<void()>& write) {
  if (changes == nullptr) {
    write();
    return;
  }
  FilePart part{path, std::nullopt, std::nullopt};
  const auto unreadable = platform::trapped([&part] { part.before = bytesAt(part.path); });
  write();
  if (!unreadable && !platform::trapped([&part] { part.after = bytesAt(part.path); })) {
    changes->add(std::move(part));
  } else {
    changes->setFinal();
  }
}

}  // namespace undo
