// Paths in the catalogue. Its code page may lack characters of a path.
//
// If the code page cannot hold a component, the list has the component's short (8.3) name instead,
// so that the tools, which read the list in the code page, can open the file. Where the volume has
// no short names, each missing character becomes a substitute: "?", or U+FFFD in a code page that
// has all characters except broken ones. The list recognises all of these forms as the same file.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace stored_path {

/// The path as it is written to the list. Components that the code page cannot hold get their short
/// name, where they exist and have one that the code page can hold. A path that the code page can
/// hold is returned unchanged, without a look-up.
[[nodiscard]] std::wstring forList(const std::wstring& path);

/// The same for the name of an entry, as a search returned it with its short name.
[[nodiscard]] const std::wstring& nameForList(const platform::files::Entry& entry);

/// The path by which the normal file that `listed`, a path of the list, means can be opened;
/// nothing when there is no such file. That is `listed` itself, unless it contains substitutes:
/// then each component is searched for among the names that the list would show in the same way.
/// Raises `error::badFileName` when there are several, because it might be the wrong file. A
/// wildcard matches nothing.
[[nodiscard]] std::optional<std::wstring> realFile(const std::wstring& listed);

/// What a path of the list means.
struct Meaning {
  std::optional<std::wstring> file;  ///< As `realFile` returns it.
  bool several = false;              ///< It may mean several files; `file` is none of them.
};

/// The same as `realFile`, but a path that may mean several files raises no error.
[[nodiscard]] Meaning meaningOf(const std::wstring& listed);

/// Whether `listed` contains no substitutes and no wildcards, so that it can only mean the file or
/// folder of exactly that path.
[[nodiscard]] bool isExact(std::wstring_view listed);

/// A text as the list would show it, in upper case: paths and names that may mean the same file
/// have the same one. Short names are not considered.
[[nodiscard]] std::wstring comparable(std::wstring_view text);

/// The characters of `text` that the code page lacks, each once, with blanks between them; "" when
/// it lacks none.
[[nodiscard]] std::wstring lackingCharacters(std::wstring_view text);

/// Which of the forms with substitutes count as forms of a path.
enum class Substitutes {
  all,     ///< All of them.
  unique,  ///< Not those of a component that is listed by its short name, if another entry of its
           ///< folder would be listed with the same substitutes.
};

/// All forms in which a path can be written in the list.
class Forms {
 public:
  /// Looks up the short names of the components that the code page cannot hold and, with
  /// `Substitutes::unique`, their neighbours. Looks up nothing for a path that the code page can
  /// hold.
  Forms(const std::wstring& path, Substitutes counting);
  /// Whether a path of the list is one of the forms, in any letter case.
  [[nodiscard]] bool match(std::wstring_view listed) const;

 private:
  std::vector<std::vector<std::wstring>> pieces_;  // forms of each component, in upper case, with
                                                   // the separator after it
};

}  // namespace stored_path
