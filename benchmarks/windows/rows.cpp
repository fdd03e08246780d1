#include "windows/rows.h"

#include <cstdio>
#include <exception>

namespace bench {

bool Table::wanted(const std::string& name) const {
  return name.find(filter_) != std::string::npos;
}

void Table::print(const Row& row) const {
  if (!wanted(row.name)) {
    return;
  }
  const char* const kind = row.kind == Limit::none     ? "none"
                           : row.kind == Limit::atMost ? "max"
                                                       : "min";
  std::printf("row\t%s\t%.3f\t%s\t%.3f\t%.4f\t%.4f\t%d\n", row.name.c_str(), row.value, kind,
              row.limit, row.ours, row.theirs, row.runs);
}

void Table::printRatio(const std::string& name, const Pair& pair, double limit, Limit kind) const {
  const double ours = median(pair.ours);
  const double theirs = median(pair.theirs);
  print({name, ours / theirs, limit, kind, ours, theirs, static_cast<int>(pair.ours.size())});
}

void Table::printFailure(const std::string& name, const std::string& reason) {
  std::printf("failed\t%s\t%s\n", name.c_str(), reason.c_str());
}

void Table::section(const std::vector<std::string>& names,
                    const std::function<void()>& measure) const {
  bool any = false;
  for (const std::string& name : names) {
    any = any || wanted(name);
  }
  if (!any) {
    return;
  }
  try {
    measure();
  } catch (const std::exception& failure) {
    for (const std::string& name : names) {
      if (wanted(name)) {
        printFailure(name, failure.what());
      }
    }
  }
}

}  // namespace bench
