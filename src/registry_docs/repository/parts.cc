#include "registry_docs/repository/parts.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "registry_docs/text.h"
#include "text/join.h"

namespace registry_docs::repository {
namespace {

BlockReport report_of(Part part, const FileReport& file, LineCounter& lines) {
  BlockReport report{.name = std::move(part.name), .begin = part.begin, .end = part.end};
  if (part.has_place) {
    report.line = lines.line_of(file.text.data() + part.begin);
    report.last_line = lines.line_of(file.text.data() + part.end);
  }
  const std::string_view stands =
      std::string_view(file.text).substr(part.begin, part.end - part.begin);
  if (!part.fault.empty()) {
    report.state = BlockState::failed;
    report.fault = std::move(part.fault);
  } else if (stands != part.text || file.is_new) {
    report.state = BlockState::stale;
    report.rendered = std::move(part.text);
  }
  return report;
}

// Each name once, in order.
std::vector<std::string_view> names_of(const std::vector<BlockReport>& parts,
                                       BlockState state) {
  std::vector<std::string_view> names;
  for (const BlockReport& part : parts) {
    const bool is_new = std::ranges::find(names, part.name) == names.end();
    if (part.state == state && is_new) names.push_back(part.name);
  }
  return names;
}

// What a write settles says no more where a person has to do something before.
void add_problems(FileReport& file, const std::vector<BlockReport>& parts) {
  const auto failed = names_of(parts, BlockState::failed);
  const auto stale = names_of(parts, BlockState::stale);
  if (file.state == FileState::failed) return;
  if (!failed.empty()) {
    file.state = FileState::failed;
    file.problem = file.path + ": claims that do not hold: " + text::join(failed, ", ");
  } else if (!stale.empty()) {
    const bool has_stale_blocks = file.state == FileState::stale;
    file.state = FileState::stale;
    file.problem =
        (has_stale_blocks ? file.problem + "; out of date: " : file.path + ": out of date: ") +
        text::join(stale, ", ");
  }
}

// Those that are not there stand behind all others.
bool is_before(const BlockReport& left, const BlockReport& right) {
  const bool left_has_place = left.line != 0;
  const bool right_has_place = right.line != 0;
  if (left_has_place != right_has_place) return left_has_place;
  return left_has_place && left.begin < right.begin;
}

}  // namespace

void look_at_parts(const Parts& parts, FileReport& report) {
  std::vector<Part> found;
  try {
    found = parts(report.text);
  } catch (const ValueError& error) {
    if (report.state == FileState::failed) return;
    report.state = FileState::failed;
    report.problem = report.path + visible(error.what());  // it may quote the file
    return;
  }
  LineCounter lines(report.text);
  std::vector<BlockReport> reports;
  reports.reserve(found.size());
  for (Part& part : found) reports.push_back(report_of(std::move(part), report, lines));
  for (const BlockReport& each : reports) report.declared.push_back(each.name);
  add_problems(report, reports);
  const auto blocks = static_cast<std::ptrdiff_t>(report.blocks.size());
  std::ranges::move(reports, std::back_inserter(report.blocks));
  std::ranges::inplace_merge(report.blocks, report.blocks.begin() + blocks, is_before);
}

}  // namespace registry_docs::repository
