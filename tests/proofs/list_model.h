// What the two list files must hold after each operation of the churn, worked out without the
// product's code.
#pragma once

#include <string>
#include <vector>

#include "worker/orders.h"

namespace proofs {

class ListModel {
 public:
  /// Lays out files in `folder`: a data folder with one file of each type, a catalogue and a web
  /// list of a few hundred records that no operation touches.
  explicit ListModel(std::wstring folder);

  void apply(const Operation& operation);

  /// Bytes of the files, with `day` for each date of today.
  [[nodiscard]] std::string catalogue() const;
  [[nodiscard]] std::string webList() const;
  bool operator==(const ListModel&) const = default;

  [[nodiscard]] std::wstring cataloguePath() const { return folder_ + L"\\QMKFileList3.txt"; }
  [[nodiscard]] std::wstring webListPath() const { return folder_ + L"\\QMKWebList.txt"; }

  /// Puts `day` in the place of each field that is today's date, or was it when the proof began.
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
