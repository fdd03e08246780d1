// Paths in the catalogue, whose code page may lack characters that they have.
//
// A component that the code page cannot hold stands in the list in its short (8.3) form, so that
// the tools, which read the list in the code page, can open it. Where the volume has no short form,
// each character that is lacking is a substitute: "?", in a code page that holds all but broken
// characters U+FFFD. The list recognises all of these forms as the same file.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace stored_path {

/// The path as it is to stand in the list: components that the code page cannot hold in their short
/// form, where they exist and have one that it can hold. A path that the code page holds is
/// returned as it is, and nothing is looked up for it.
[[nodiscard]] std::wstring forList(const std::wstring& path);

/// The same of the name of an entry, as a search gave it with its short name.
[[nodiscard]] const std::wstring& nameForList(const platform::files::Entry& entry);

/// The path by which the normal file that `listed`, a path of the list, names can be reached;
/// nothing when there is no such file. That is `listed` itself unless it holds substitutes: then
/// each of its components is looked for among the names that the list would show like it. Raises 52
/// when there are several of them, because the file might be another one. A wildcard names nothing.
[[nodiscard]] std::optional<std::wstring> realFile(const std::wstring& listed);

/// The characters of `text` that the code page lacks, each once, with blanks between them; "" when
/// it lacks none.
[[nodiscard]] std::wstring lackingCharacters(std::wstring_view text);

/// Which of the forms with substitutes count as a path's own.
enum class Substitutes {
  all,     ///< Each of them.
  unique,  ///< Not those of a component that is listed in its short form, if another entry of its
           ///< folder would be listed with the same substitutes.
};

/// All forms in which a path can stand in the list.
class Forms {
 public:
  /// Looks up the short forms of the components that the code page cannot hold, and with
  /// `Substitutes::unique` their neighbours; nothing for a path that the code page holds.
  Forms(const std::wstring& path, Substitutes counting);
  /// Whether a path of the list is one of them, in any letter case.
  [[nodiscard]] bool match(std::wstring_view listed) const;

 private:
  std::vector<std::vector<std::wstring>> pieces_;  // the forms of each part, in upper case, with
                                                   // the separator behind it
};

}  // namespace stored_path
