#include "mainwindow/status_texts.h"

#include <array>

namespace mainwindow {

namespace {

struct Noun {
  const wchar_t* one;
  const wchar_t* many;
};

constexpr std::array<Noun, 4> nouns{{{L"shortcut", L"shortcuts"},
                                     {L"file", L"files"},
                                     {L"new file", L"new files"},
                                     {L"web shortcut", L"web shortcuts"}}};

}  // namespace

std::wstring countText(int tab, const Counts& counts) {
  const Noun& noun = nouns.at(static_cast<std::size_t>(tab));
  std::wstring text = std::to_wstring(counts.all) + L" " + (counts.all == 1 ? noun.one : noun.many);
  if (counts.narrowed) {
    text += L", " + std::to_wstring(counts.shown) + L" shown";
  }
  if (counts.missing > 0) {
    text += L", " + std::to_wstring(counts.missing) + L" missing";
  }
  return text;
}

std::wstring addedText(const Additions& additions) {
  std::wstring text = std::to_wstring(additions.added) + L" added";
  if (additions.present > 0) {
    text += L", " + std::to_wstring(additions.present) + L" already there";
  }
  for (const Refusal& refusal : additions.refusals) {
    if (refusal.count > 0) {
      text += L", " + std::to_wstring(refusal.count) + L" not added: " + refusal.reason;
    }
  }
  return text;
}

std::wstring alsoText(const std::wstring& news, const std::wstring& more) {
  return news.empty() ? more : news + L"; " + more;
}

std::wstring searchText(const std::wstring& what, std::size_t found) {
  return what + L": " + std::to_wstring(found) + L" found (Esc stops)";
}

}  // namespace mainwindow
