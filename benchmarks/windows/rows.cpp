#include "windows/rows.h"

#include <array>
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
  std::array<char, 400> line{};
  std::snprintf(line.data(), line.size(), "row\t%s\t%.3f\t%s\t%.3f\t%.4f\t%.4f\t%d\t%.3f\t%.3f\n",
                row.name.c_str(), row.value, kind, row.limit, row.ours, row.theirs, row.runs,
                row.low, row.high);
  lines_.emplace_back(line.data());
}

void Table::printRatio(const std::string& name, const Pair& pair, double limit, Limit kind) const {
  const std::vector<double> ratios = pair.ratios();
  print({name, median(ratios), limit, kind, median(pair.ours), median(pair.theirs),
         static_cast<int>(ratios.size()), quantile(ratios, 0.25), quantile(ratios, 0.75)});
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
  std::string reasons;
  for (const bool last : {false, true}) {
    lines_.clear();
    try {
      measure();
      for (const std::string& line : lines_) {
        std::fputs(line.c_str(), stdout);
      }
      return;
    } catch (const std::exception& failure) {
      reasons.append(reasons.empty() ? "" : "; again: ").append(failure.what());
      if (!last) {
        std::fprintf(stderr, "%s: %s; once more\n", names.front().c_str(), failure.what());
      }
    }
  }
  for (const std::string& name : names) {
    if (wanted(name)) {
      printFailure(name, reasons);
    }
  }
}

}  // namespace bench
