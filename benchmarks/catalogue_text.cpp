#include "catalogue_text.h"

#include <array>
#include <numeric>

namespace bench {
namespace {

struct Type {
  const char* code;
  const char* extension;
};

// Records of the folder build have lower-case types, those of the tools upper-case ones.
constexpr std::array types{Type{"fp3", ".fp3"}, Type{"BI3", ".bi3"}, Type{"bs3", ".BS3"},
                           Type{"CW3", ".cw3"}};

constexpr std::array stems{"plot ",
                           "Plot",
                           "ridge creek ",
                           "Unit",
                           "burn unit ",
                           "TRANSECT",
                           "lower meadow ",
                           "stand",
                           "North slope ",
                           "fuelbed",
                           "Post-burn ",
                           "survey",
                           "Old growth ",
                           "cruise",
                           "thinning ",
                           "Qu\xE9"
                           "bec for\xEAt "};

std::string twoDigits(std::size_t number) {
  std::string digits = std::to_string(number % 100);
  return digits.size() < 2 ? "0" + digits : digits;
}

/// Position of item `n` in a fixed shuffle of 0 to `records` - 1.
std::size_t shuffled(std::size_t n, std::size_t records) {
  std::size_t step = 618033;
  while (std::gcd(step, records) != 1) {
    ++step;
  }
  return n * step % records;
}

std::string dateText(std::size_t n, unsigned variant) {
  const std::size_t moment = n * 7919 + variant;
  return std::to_string(moment % 12 + 1) + "/" + std::to_string(moment / 12 % 28 + 1) + "/20" +
         twoDigits(10 + moment / 336 % 17) + " " + std::to_string(moment % 11 + 1) + ":" +
         twoDigits(moment / 11 % 60) + ":" + twoDigits(moment / 660 % 60) +
         (moment % 2 == 0 ? " AM" : " PM");
}

}  // namespace

std::string recordPath(std::size_t n, std::size_t records) {
  const std::size_t number = shuffled(n, records);
  constexpr std::size_t folders = 40;
  return "C:\\Users\\Ranger\\Documents\\Field data\\Unit " + std::to_string(n % folders + 1) +
         "\\" + stems.at(number % stems.size()) + std::to_string(number) +
         types.at(number % types.size()).extension;
}

std::string catalogueText(std::size_t records, unsigned variant) {
  std::string bytes;
  constexpr std::size_t usualLength = 100;
  bytes.reserve(records * usualLength);
  for (std::size_t n = 0; n < records; ++n) {
    const std::size_t number = shuffled(n, records);
    bytes += '"';
    bytes += types.at(number % types.size()).code;
    bytes += "\",\"";
    bytes += recordPath(n, records);
    bytes += "\",\"";
    bytes += dateText(number, variant);
    bytes += "\"\r\n";
  }
  return bytes;
}

}  // namespace bench
