#include "controls/sheet.h"

#include <algorithm>

#include "common/convert.h"

namespace kebu::controls {

namespace {

using Role = SheetLine::Role;

constexpr std::int32_t barSigns = 20;
constexpr std::size_t widestLabel = 60;  // a longer one pushes its value to the right
constexpr std::size_t widestValue = 30;
constexpr const char* lineEnd = "\r\n";

std::string percentOf(const Share& share) {
  return std::to_string(share.of(100)) + " %";
}

std::string barOf(const Share& share) {
  const auto filled = static_cast<std::size_t>(share.of(barSigns));
  return "[" + std::string(filled, '#') + std::string(barSigns - filled, '.') + "] " +
         percentOf(share);
}

std::string padded(const std::string& text, std::size_t width) {
  const std::size_t length = characterCount(text);
  return text + std::string(length < width ? width - length : 0, ' ');
}

std::string underlined(const std::string& text, char sign) {
  return text + lineEnd + std::string(characterCount(text), sign) + lineEnd;
}

}  // namespace

std::int32_t Share::of(std::int32_t units) const {
  if (part <= 0 || whole <= 0) return 0;
  if (part >= whole) return units;
  return std::clamp(static_cast<std::int32_t>((part * units + whole / 2) / whole), 1, units - 1);
}

std::string readingOf(const SheetLine& line) {
  std::string text = line.label;
  if (!line.value.empty()) text += (text.empty() ? "" : ": ") + line.value;
  if (line.share) text += " (" + percentOf(*line.share) + ")";
  return text;
}

void Sheet::setLines(const std::vector<SheetLine>& lines) {
  setShown(lines_, lines);
}

std::string Sheet::text() const {
  std::size_t labels = 0;
  std::size_t values = 0;
  for (const SheetLine& line : lines_) {
    if (line.role != Role::Entry || line.value.empty()) continue;
    labels = std::max(labels, characterCount(line.label));
    if (line.share) values = std::max(values, characterCount(line.value));
  }
  labels = std::min(labels, widestLabel);
  values = std::min(values, widestValue);

  std::string text = underlined(caption(), '=');
  for (const SheetLine& line : lines_) {
    if (line.role == Role::Heading) {
      text += lineEnd + underlined(line.label, '-');
      continue;
    }
    if (line.role == Role::Warning) text += "! ";
    const bool hasValue = !line.value.empty();
    text += hasValue ? padded(line.label, labels) + "  " : line.label;
    text += line.share ? padded(line.value, values) + "  " + barOf(*line.share) : line.value;
    text += lineEnd;
  }
  return text;
}

std::string Sheet::fileText() const {
  return "\xEF\xBB\xBF" + text();
}

void Sheet::copy() const {
  requireReachable();
  CopyWanted.raise(text());
}

void Sheet::save() const {
  requireReachable();
  SaveWanted.raise(fileText());
}

}  // namespace kebu::controls
