// The contents that the two list files must have after each operation of the churn, computed
// without the product's code.
#pragma once

#include <string>
#include <vector>

#include "worker/orders.h"

namespace proofs {

class ListModel {
 public:
  /// Creates files in `folder`: a data folder with one file of each type, a catalogue and a web
  /// list with a few hundred records that no operation changes.
  explicit ListModel(std::wstring folder);

  void apply(const Operation& operation);

  /// Bytes of the files, with `day` instead of today's date.
  [[nodiscard]] std::string catalogue() const;
  [[nodiscard]] std::string webList() const;
  bool operator==(const ListModel&) const = default;

  [[nodiscard]] std::wstring cataloguePath() const { return folder_ + L"\\QMKFileList3.txt"; }
  [[nodiscard]] std::wstring webListPath() const { return folder_ + L"\\QMKWebList.txt"; }

  /// Replaces each field that is today's date, or was today's date when the proof began, by `day`.
  [[nodiscard]] static std::string withoutToday(std::string bytes);

 private:
  struct Line {
    std::wstring key;
    std::string bytes;
    bool operator==(const Line&) const = default;
  };
  void refresh();
  std::wstring folder_;
  std::vector<Line> catalogue_;
  std::vector<Line> webList_;
};

}  // namespace proofs
