#include "icons/drawing.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace icons {

using platform::Picture;
using platform::Size;

namespace {

constexpr double finest = 0.02;  // how far the lines of a curve may be from it, in pixels
constexpr float opaque = 255;

struct Point {
  double x;
  double y;
};

using Outline = std::vector<Point>;
using Path = std::vector<Outline>;

/// Takes the next word of a line; "" at its end.
std::string_view nextWord(std::string_view& line) {
  line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
  const std::string_view word = line.substr(0, line.find(' '));
  line.remove_prefix(word.size());
  return word;
}

/// A whole number; nothing when the word is none.
std::optional<int> number(std::string_view word, int base) {
  int value = 0;
  const char* const end = word.data() + word.size();
  const auto [stop, problem] = std::from_chars(word.data(), end, value, base);
  return problem == std::errc() && stop == end ? std::optional(value) : std::nullopt;
}

/// Replaces a curve by so many lines that none is visibly beside it (Wang's formula).
void addCurve(Outline& outline, Point first, Point second, Point end) {
  const Point start = outline.back();
  const auto bend = [](Point a, Point b, Point c) {
    return std::hypot(a.x - 2 * b.x + c.x, a.y - 2 * b.y + c.y);
  };
  const double most = std::max(bend(start, first, second), bend(first, second, end));
  const int lines = 1 + static_cast<int>(std::sqrt(0.75 * most / finest));
  for (int i = 1; i <= lines; ++i) {
    const double t = static_cast<double>(i) / lines;
    const double u = 1 - t;
    const auto along = [t, u](double a, double b, double c, double d) {
      return u * u * u * a + 3 * u * u * t * b + 3 * u * t * t * c + t * t * t * d;
    };
    outline.push_back(
        {along(start.x, first.x, second.x, end.x), along(start.y, first.y, second.y, end.y)});
  }
}

/// Where the numbers of a drawing are in the picture.
class Room {
 public:
  Room(Size drawn, Size painted) : drawn_(drawn), painted_(painted) {}

  /// Takes a point in pixels; nothing when there is none or it is far outside.
  [[nodiscard]] std::optional<Point> nextPoint(std::string_view& line) const {
    const auto x = nextLength(line, drawn_.width, painted_.width);
    const auto y = nextLength(line, drawn_.height, painted_.height);
    return x && y ? std::optional(Point{*x, *y}) : std::nullopt;
  }

  /// The path that is the rest of a line, in pixels; nothing when it is malformed.
  [[nodiscard]] std::optional<Path> path(std::string_view line) const {
    Path path;
    for (std::string_view word = nextWord(line); !word.empty(); word = nextWord(line)) {
      if (word == "m") {
        path.emplace_back();
      }
      const auto point = nextPoint(line);
      if (!point || path.empty()) {
        return std::nullopt;
      }
      if (word == "m" || word == "l") {
        path.back().push_back(*point);
        continue;
      }
      const auto second = nextPoint(line);
      const auto end = nextPoint(line);
      if (word != "c" || !second || !end) {
        return std::nullopt;
      }
      addCurve(path.back(), *point, *second, *end);
    }
    return path;
  }

 private:
  static constexpr double beyond = 3;

  static std::optional<double> nextLength(std::string_view& line, int drawn, int painted) {
    const auto length = number(nextWord(line), 10);
    const double share = length ? static_cast<double>(*length) / drawn : beyond;
    return share >= -1 && share <= 2 ? std::optional(share * painted) : std::nullopt;
  }

  Size drawn_;
  Size painted_;
};

/// How much of each pixel of a picture a path covers. Between two calls all places are 0, so that
/// one piece of memory serves all paths.
class Coverage {
 public:
  explicit Coverage(Size size) : size_(size) {}

  /// Calls `visit(row, first, last, share)` for the pixels first <= column < last of a row that are
  /// covered alike.
  template <typename Visit>
  void forEachRun(const Path& path, const Visit& visit) {
    enclose(path);
    for (const Outline& outline : path) {
      for (std::size_t i = 0; i < outline.size(); ++i) {
        addEdge(outline[i], outline[(i + 1) % outline.size()]);
      }
    }
    for (int row = 0; row < height_; ++row) {
      float* const edges = steps_.data() + place(0, row);
      float sum = 0;
      for (int column = 0; column < width_;) {
        sum += std::exchange(edges[column], 0.0F);
        const int first = column++;
        while (column < width_ && edges[column] == 0) {
          ++column;
        }
        const float share = std::abs(sum);
        const int left = std::max(first + left_, 0);
        const int right = std::min(column + left_, size_.width);
        if (share > rounding && left < right) {
          visit(row + top_, left, right, share > 1 - rounding ? 1 : share);
        }
      }
    }
  }

 private:
  static constexpr float rounding =
      0.001F;  // what the sum of a row may have too much or too little

  /// Makes room for a path.
  void enclose(const Path& path) {
    double left = size_.width;
    double right = 0;
    double top = size_.height;
    double bottom = 0;
    for (const Outline& outline : path) {
      for (const Point point : outline) {
        left = std::min(left, point.x);
        right = std::max(right, point.x);
        top = std::min(top, point.y);
        bottom = std::max(bottom, point.y);
      }
    }
    left_ = static_cast<int>(std::floor(left));
    top_ = std::max(static_cast<int>(std::floor(top)), 0);
    height_ = std::max(std::min(static_cast<int>(std::ceil(bottom)), size_.height) - top_, 0);
    // An edge on the last border touches the pixel behind it.
    width_ = std::max(static_cast<int>(std::ceil(right)) - left_, 0) + 2;
    steps_.resize(std::max(steps_.size(), place(0, height_)));
  }

  [[nodiscard]] std::size_t place(int column, int row) const {
    return static_cast<std::size_t>(row) * width_ + column;
  }

  void addEdge(Point from, Point to) {
    const double direction = from.y < to.y ? 1 : -1;
    if (from.y > to.y) {
      std::swap(from, to);
    }
    const double slope = from.y == to.y ? 0 : (to.x - from.x) / (to.y - from.y);
    const double top = std::max(from.y - top_, 0.0);
    const double bottom = std::min(to.y - top_, static_cast<double>(height_));
    const auto at = [&](double y) {
      return std::clamp(from.x - left_ + (y + top_ - from.y) * slope, 0.0, width_ - 2.0);
    };
    for (double y = top; y < bottom;) {
      const int row = static_cast<int>(y);
      const double end = std::min(row + 1.0, bottom);
      addInRow(row, std::min(at(y), at(end)), std::max(at(y), at(end)), (end - y) * direction);
      y = end;
    }
  }

  /// Adds the part of an edge that lies in one row.
  void addInRow(int row, double left, double right, double height) {
    double x = left;
    do {
      const int column = static_cast<int>(x);
      const double end = std::min(column + 1.0, right);
      const double part = right > left ? height * (end - x) / (right - left) : height;
      const double behind = (x + end) / 2 - column;  // the share of the pixel left of the edge
      steps_[place(column, row)] += static_cast<float>(part * (1 - behind));
      steps_[place(column + 1, row)] += static_cast<float>(part * behind);
      x = end;
    } while (x < right);
  }

  Size size_;
  int left_ = 0;
  int top_ = 0;
  int width_ = 0;
  int height_ = 0;
  std::vector<float> steps_;  // the difference of each pixel from the one to its left
};

/// Puts a colour, 0xRRGGBB, over a pixel.
void cover(std::uint32_t& pixel, std::uint32_t colour, float share) {
  const float below = static_cast<float>(pixel >> 24U) / opaque * (1 - share);
  const float alpha = share + below;
  const float upper = share / alpha;
  auto result = static_cast<std::uint32_t>(std::lround(alpha * opaque));
  for (const unsigned shift : {16U, 8U, 0U}) {
    const auto former = static_cast<float>((pixel >> shift) & 0xFFU);
    const auto fresh = static_cast<float>((colour >> shift) & 0xFFU);
    result =
        result << 8U | static_cast<std::uint32_t>(std::lround(former + (fresh - former) * upper));
  }
  pixel = result;
}

class Canvas {
 public:
  explicit Canvas(Size size)
      : picture_{size,
                 std::vector<std::uint32_t>(static_cast<std::size_t>(size.width) * size.height)},
        coverage_(size) {}

  void fill(std::uint32_t colour, const Path& path) {
    coverage_.forEachRun(path, [&](int row, int first, int last, float share) {
      const auto pixels = picture_.pixels.begin() + start(row);
      if (share == 1 && clip_.empty()) {
        std::fill(pixels + first, pixels + last, 0xFF000000U | colour);
        return;
      }
      for (int column = first; column < last; ++column) {
        const float visible = clip_.empty() ? share : share * clip_[start(row) + column];
        if (visible > 0) {
          cover(pixels[column], colour, visible);
        }
      }
    });
  }

  void clip(const Path& path) {
    clip_.assign(picture_.pixels.size(), 0);
    coverage_.forEachRun(path, [&](int row, int first, int last, float share) {
      std::fill(clip_.begin() + start(row) + first, clip_.begin() + start(row) + last, share);
    });
  }

  void unclip() { clip_.clear(); }

  [[nodiscard]] Picture take() { return std::move(picture_); }

 private:
  [[nodiscard]] std::ptrdiff_t start(int row) const {
    return static_cast<std::ptrdiff_t>(row) * picture_.size.width;
  }

  Picture picture_;
  Coverage coverage_;
  std::vector<float> clip_;  // the share of each pixel that may be painted; empty: all of it
};

/// Carries out one statement after the first. Returns false when it is malformed.
bool carryOut(std::string_view line, const Room& room, Canvas& canvas) {
  const std::string_view statement = nextWord(line);
  if (statement == "unclip") {
    canvas.unclip();
    return true;
  }
  const auto colour = statement == "fill" ? number(nextWord(line), 16) : std::nullopt;
  const auto path = room.path(line);
  if (path && colour) {
    canvas.fill(static_cast<std::uint32_t>(*colour), *path);
    return true;
  }
  if (path && statement == "clip") {
    canvas.clip(*path);
    return true;
  }
  return false;
}

/// Takes the next line of a text.
std::string_view nextLine(std::string_view& text) {
  const std::string_view line = text.substr(0, text.find('\n'));
  text.remove_prefix(std::min(line.size() + 1, text.size()));
  return line;
}

}  // namespace

std::optional<Picture> painted(std::string_view drawing, Size size) {
  std::string_view head = nextLine(drawing);
  const bool sized = nextWord(head) == "size";
  const auto width = number(nextWord(head), 10);
  const auto height = number(nextWord(head), 10);
  if (!sized || !width || !height || *width <= 0 || *height <= 0 || size.width <= 0 ||
      size.height <= 0) {
    return std::nullopt;
  }
  const Room room({*width, *height}, size);
  Canvas canvas(size);
  while (!drawing.empty()) {
    if (!carryOut(nextLine(drawing), room, canvas)) {
      return std::nullopt;
    }
  }
  return canvas.take();
}

}  // namespace icons
