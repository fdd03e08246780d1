#include "catalogue/stored_path.h"

#include <algorithm>
#include <utility>

#include "platform/run_time_error.h"
#include "platform/text.h"
#include "platform/trap.h"

namespace stored_path {

using platform::text::fitsCodePage;
using platform::text::fromCodePage;
using platform::text::toCodePage;
using platform::text::upper;

namespace files = platform::files;

namespace {

constexpr std::wstring_view separators = L"\\/";
constexpr std::wstring_view substitutes = L"?\xFFFD";
/// Characters that no name can contain. A search takes some of them as wildcards.
constexpr std::wstring_view neverInNames = L"*<>\"|";

/// Length of the prefix before the components, which marks a path that is taken literally.
std::size_t beginOf(std::wstring_view path) {
  constexpr std::wstring_view literal = LR"(\\?\)";
  return path.starts_with(literal) ? literal.size() : 0;
}

/// A part of a path: a component, and the separator after it, if there is one.
struct Piece {
  std::wstring_view component;
  std::wstring_view separator;
};

/// Removes the first piece from `rest` and returns it.
Piece takePiece(std::wstring_view& rest) {
  const std::size_t end = std::min(rest.find_first_of(separators), rest.size());
  const Piece piece{rest.substr(0, end), rest.substr(end, 1)};
  rest.remove_prefix(end + piece.separator.size());
  return piece;
}

/// Calls `take` with each piece, and with the path up to the end of that piece's component.
template <class Take>
void forEachPiece(std::wstring_view path, Take take) {
  for (std::wstring_view rest = path; !rest.empty();) {
    const Piece piece = takePiece(rest);
    take(piece, std::wstring(path.substr(0, path.size() - rest.size() - piece.separator.size())));
  }
}

/// The text as it appears in the list.
std::wstring asListed(std::wstring_view text) { return fromCodePage(toCodePage(text)); }

/// Names of the entries of `folder` (which ends in a separator) that the list would show as
/// `component`. Short names are not considered.
std::vector<std::wstring> listedLike(const std::wstring& folder, std::wstring_view component) {
  constexpr unsigned everything = files::hidden | files::system | files::directory;
  const std::wstring wanted = upper(component);
  std::vector<std::wstring> names;
  for (const files::Entry& entry : files::search(folder + L"*", everything)) {
    if (upper(asListed(entry.name)) == wanted) {
      names.push_back(entry.name);
    }
  }
  return names;
}

/// The short name of the entry at `path`; "" when it has none that the code page can hold.
std::wstring shortFormOf(const std::wstring& path) {
  const auto entry = files::entryAt(path);
  return entry && fitsCodePage(entry->shortName) ? entry->shortName : L"";
}

}  // namespace

std::wstring forList(const std::wstring& path) {
  if (fitsCodePage(path)) {
    return path;
  }
  std::wstring listed;
  forEachPiece(path, [&listed](const Piece& piece, const std::wstring& whole) {
    const std::wstring form = fitsCodePage(piece.component) ? L"" : shortFormOf(whole);
    listed += form.empty() ? piece.component : form;
    listed += piece.separator;
  });
  return listed;
}

const std::wstring& nameForList(const files::Entry& entry) {
  const bool replaced =
      !fitsCodePage(entry.name) && !entry.shortName.empty() && fitsCodePage(entry.shortName);
  return replaced ? entry.shortName : entry.name;
}

std::optional<std::wstring> realFile(const std::wstring& listed) {
  const std::size_t begin = beginOf(listed);
  if (listed.find_first_of(neverInNames, begin) != std::wstring::npos) {
    return std::nullopt;
  }
  if (listed.find_first_of(substitutes, begin) == std::wstring::npos) {
    return files::fileExists(listed) ? std::optional(listed) : std::nullopt;
  }
  std::wstring path = listed.substr(0, begin);
  for (std::wstring_view rest = std::wstring_view(listed).substr(begin); !rest.empty();) {
    const Piece piece = takePiece(rest);
    if (piece.component.find_first_of(substitutes) == std::wstring_view::npos) {
      path += piece.component;
    } else {
      const std::vector<std::wstring> names = listedLike(path, piece.component);
      if (names.size() > 1) {
        platform::raiseAbout(listed, platform::error::badFileName);
      }
      if (names.empty()) {
        return std::nullopt;
      }
      path += names.front();
    }
    path += piece.separator;
  }
  return files::fileExists(path) ? std::optional(path) : std::nullopt;
}

Meaning meaningOf(const std::wstring& listed) {
  Meaning meaning;
  const auto failure = platform::trapped([&] { meaning.file = realFile(listed); });
  meaning.several = failure && failure->number() == platform::error::badFileName;
  if (failure && !meaning.several) {
    throw platform::RunTimeError(*failure);
  }
  return meaning;
}

bool isExact(std::wstring_view listed) {
  const std::size_t begin = beginOf(listed);
  return listed.find_first_of(neverInNames, begin) == std::wstring_view::npos &&
         listed.find_first_of(substitutes, begin) == std::wstring_view::npos;
}

std::wstring comparable(std::wstring_view text) { return upper(asListed(text)); }

std::wstring lackingCharacters(std::wstring_view text) {
  const auto isIn = [](wchar_t unit, unsigned first) {
    constexpr unsigned surrogates = 0x400;
    return static_cast<unsigned>(unit) - first < surrogates;
  };
  std::wstring characters;
  while (!text.empty()) {
    const bool pair = text.size() > 1 && isIn(text[0], 0xD800) && isIn(text[1], 0xDC00);
    const std::wstring_view character = text.substr(0, pair ? 2 : 1);
    if (!fitsCodePage(character) && characters.find(character) == std::wstring::npos) {
      characters += characters.empty() ? L"" : L" ";
      characters += character;
    }
    text.remove_prefix(character.size());
  }
  return characters;
}

Forms::Forms(const std::wstring& path, Substitutes counting) {
  forEachPiece(path, [&](const Piece& piece, const std::wstring& whole) {
    std::vector<std::wstring> forms{std::wstring(piece.component)};
    if (!fitsCodePage(piece.component)) {
      const std::wstring shortForm = shortFormOf(whole);
      const std::wstring substituted = asListed(piece.component);
      const std::wstring folder = whole.substr(0, whole.size() - piece.component.size());
      if (shortForm.empty() || counting == Substitutes::all ||
          listedLike(folder, substituted).size() <= 1) {
        forms.push_back(substituted);
      }
      if (!shortForm.empty()) {
        forms.push_back(shortForm);
      }
    }
    for (std::wstring& form : forms) {
      form = upper(form.append(piece.separator));
    }
    pieces_.push_back(std::move(forms));
  });
}

bool Forms::match(std::wstring_view listed) const {
  const std::wstring text = upper(listed);
  std::wstring_view rest = text;
  for (const std::vector<std::wstring>& forms : pieces_) {
    const Piece piece = takePiece(rest);
    const std::wstring_view whole(piece.component.data(),
                                  piece.component.size() + piece.separator.size());
    if (std::find(forms.begin(), forms.end(), whole) == forms.end()) {
      return false;
    }
  }
  return rest.empty();
}

}  // namespace stored_path
