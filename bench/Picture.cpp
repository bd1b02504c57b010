#include "bench/Picture.h"

#include <algorithm>
#include <fmt/core.h>

namespace wrt::bench {

namespace {

constexpr int kWidth = 760;
constexpr int kLeft = 190; ///< where the bars begin
constexpr int kRight = 90; ///< room for the figures behind them
constexpr int kTop = 44;   ///< room for the legend
constexpr int kRowHeight = 22;
constexpr int kBarHeight = 14;

/// A part of a bar, and how the style names it.
struct Part {
  const char *style;
  const char *title;
};

constexpr Part kParts[] = {{"platform", "the platform alone"},
                           {"messages", "messages that have to be sent"},
                           {"rest", "the rest: lists, blocks, bridges, marshalling"}};

} // namespace

std::string picture(const Measurements &measurements) {
  const int height = kTop + static_cast<int>(rows().size()) * kRowHeight + 10;
  std::string svg =
      fmt::format("<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 {} {}\" role=\"img\" "
                  "aria-label=\"Instructions per call\">\n",
                  kWidth, height);
  svg += "<style>\n"
         "text { font: 12px system-ui, sans-serif; fill: #24292f }\n"
         ".platform { fill: #8c959f } .messages { fill: #3b82c4 } .rest { fill: #d97b29 }\n"
         "@media (prefers-color-scheme: dark) {\n"
         "  text { fill: #d7dde3 }\n"
         "  .platform { fill: #6e7781 } .messages { fill: #58a6ff } .rest { fill: #e3963e }\n"
         "}\n"
         "</style>\n";
  int x = 12;
  for (const Part &part : kParts) {
    svg += fmt::format("<rect class=\"{}\" x=\"{}\" y=\"12\" width=\"12\" height=\"12\"/>"
                       "<text x=\"{}\" y=\"22\">{}</text>\n",
                       part.style, x, x + 18, part.title);
    x += 60 + static_cast<int>(6.2 * static_cast<double>(std::string_view(part.title).size()));
  }
  int y = kTop;
  for (const Row &row : rows()) {
    const double all = measurements.at(std::string(row.name) + "/bridge").instructions;
    const double platform =
        std::min(all, measurements.at(std::string(row.name) + "/platform").instructions);
    const double floor = std::min(all, floorOf(row, measurements).instructions);
    const double shares[] = {platform, floor - platform, all - floor};
    svg += fmt::format("<text x=\"{}\" y=\"{}\" text-anchor=\"end\">{}</text>\n", kLeft - 8, y + 12,
                       row.name);
    double from = kLeft;
    for (size_t i = 0; i < std::size(kParts); ++i) {
      const double width = all > 0 ? shares[i] / all * (kWidth - kLeft - kRight) : 0;
      svg +=
          fmt::format("<rect class=\"{}\" x=\"{:.1f}\" y=\"{}\" width=\"{:.1f}\" height=\"{}\"/>\n",
                      kParts[i].style, from, y + 1, width, kBarHeight);
      from += width;
    }
    svg += fmt::format("<text x=\"{}\" y=\"{}\">{:.0f}</text>\n", kWidth - kRight + 8, y + 12, all);
    y += kRowHeight;
  }
  return svg + "</svg>\n";
}

} // namespace wrt::bench
