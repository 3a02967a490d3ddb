#include "generation/faults.h"

#include <algorithm>
#include <iterator>

#include "catalogue/catalogue.h"
#include "text/whole_characters.h"

namespace olt_host {

namespace {

constexpr std::uint32_t kAllOnes = 0xFFFFFFFF;

// A text of a report together with what its buffer can hold.
struct ReportText {
  std::optional<std::string>* text;
  std::string* behind;
  std::size_t room;
};

std::vector<ReportText> TextsOf(OnuReport& report) {
  return {{&report.vendor_id, &report.behind_vendor_id, kVendorIdBytes},
          {&report.device_name, &report.behind_device_name, kDeviceNameBytes}};
}

// One of the texts that fit, or one whose text is null.
template <typename Fits>
ReportText AnyText(OnuReport& report, RandomStream& random, const Fits& fits) {
  std::vector<ReportText> fitting;
  for (const ReportText& each : TextsOf(report)) {
    if (each.text->has_value() && fits(each)) fitting.push_back(each);
  }
  if (fitting.empty()) return {nullptr, nullptr, 0};
  return fitting[random.Below(static_cast<std::uint32_t>(fitting.size()))];
}

// One of the told numbers; null without any.
std::uint32_t* AnyNumber(OnuReport& report, RandomStream& random) {
  std::vector<std::uint32_t*> told;
  for (auto& ability : report.abilities) {
    if (ability.second != kAllOnes) told.push_back(&ability.second);
  }
  if (told.empty()) return nullptr;
  return told[random.Below(static_cast<std::uint32_t>(told.size()))];
}

FaultEffect BringMissing(OnuReport& report, RandomStream& random) {
  const auto abilities = static_cast<std::uint32_t>(report.abilities.size());
  const std::uint32_t texts = (report.vendor_id ? 1U : 0U) + (report.device_name ? 1U : 0U);
  if (abilities + texts == 0) return FaultEffect::kNone;
  const std::uint32_t which = random.Below(abilities + texts);
  if (which < abilities) {
    report.abilities.erase(std::next(report.abilities.begin(), which));
  } else if (which == abilities && report.vendor_id) {
    report.vendor_id.reset();
  } else {
    report.device_name.reset();
  }
  return FaultEffect::kHarmful;
}

FaultEffect BringOnes(OnuReport& report, RandomStream& random) {
  std::uint32_t* number = AnyNumber(report, random);
  if (number == nullptr) return FaultEffect::kNone;
  *number = kAllOnes;
  return FaultEffect::kHarmful;
}

FaultEffect BringTruncated(OnuReport& report, RandomStream& random) {
  const ReportText cut =
      AnyText(report, random, [](const ReportText& each) { return each.text->value().size() > 1; });
  if (cut.text == nullptr) return FaultEffect::kNone;
  std::string& text = cut.text->value();
  const std::size_t kept = 1 + random.Below(static_cast<std::uint32_t>(text.size() - 1));
  // A character is not cut in two: reports are UTF-8.
  text.resize(WholeCharacters(text, kept));
  return FaultEffect::kHarmful;
}

bool IsSmall(char c) { return c >= 'a' && c <= 'z'; }
bool IsCapital(char c) { return c >= 'A' && c <= 'Z'; }

FaultEffect BringCase(OnuReport& report, RandomStream& random) {
  const ReportText turned = AnyText(report, random, [](const ReportText& each) {
    const std::string& text = each.text->value();
    return std::any_of(text.begin(), text.end(), [](char c) { return IsSmall(c) || IsCapital(c); });
  });
  if (turned.text == nullptr) return FaultEffect::kNone;
  std::string& text = turned.text->value();
  // In small letters, unless nothing is capital in it.
  const bool to_small = std::any_of(text.begin(), text.end(), IsCapital);
  for (char& c : text) {
    if (to_small && IsCapital(c)) c = static_cast<char>(c - 'A' + 'a');
    if (!to_small && IsSmall(c)) c = static_cast<char>(c - 'a' + 'A');
  }
  return FaultEffect::kHarmful;
}

FaultEffect BringPadding(OnuReport& report, RandomStream& random) {
  const ReportText padded = AnyText(report, random, [](const ReportText& each) {
    return each.behind->empty() && each.text->value().size() < each.room;
  });
  if (padded.text == nullptr) return FaultEffect::kNone;
  const std::size_t room = padded.room - padded.text->value().size();
  const std::size_t added = 1 + random.Below(static_cast<std::uint32_t>(room));
  if (random.Coin() || room == 1) {
    padded.text->value().append(added, ' ');
    return FaultEffect::kHarmful;
  }
  padded.behind->assign(std::max<std::size_t>(added, 2) - 1, '\0');
  return FaultEffect::kHarmless;
}

// Bytes that can be told in YAML and JSON: those of ASCII, but not only zeros.
std::string Garbage(std::size_t length, RandomStream& random) {
  std::string garbage;
  for (std::size_t i = 0; i < length; ++i) {
    garbage += static_cast<char>(i == 0 ? 1 + random.Below(127) : random.Below(128));
  }
  return garbage;
}

FaultEffect BringGarbage(OnuReport& report, RandomStream& random) {
  ReportText spoilt = AnyText(report, random, [](const ReportText& each) {
    return each.text->value().size() + each.behind->size() + 2 <= each.room;
  });
  if (spoilt.text == nullptr) return FaultEffect::kNone;
  // Behind padding, where there is some.
  const std::size_t taken = spoilt.text->value().size() + 1 + spoilt.behind->size();
  const std::size_t length = 1 + random.Below(static_cast<std::uint32_t>(spoilt.room - taken));
  *spoilt.behind += Garbage(length, random);
  return FaultEffect::kHarmless;
}

FaultEffect BringUnknown(const FaultContext& context, OnuReport& report, RandomStream& random) {
  constexpr std::uint32_t kCodes = 65535;
  const std::uint32_t count = 1 + random.Below(3);
  if (context.known_codes.size() + report.abilities.size() + count > kCodes) {
    return FaultEffect::kNone;
  }
  for (std::uint32_t i = 0; i < count; ++i) {
    std::uint32_t code = random.Below(kCodes);
    while (context.known_codes.count(static_cast<std::uint16_t>(code)) != 0) {
      code = (code + 1) % kCodes;
    }
    report.abilities[static_cast<std::uint16_t>(code)] = random.Below(256);
  }
  return FaultEffect::kHarmless;
}

// Like an ONU whose software was changed: it tells its type or no longer does, and has
// one more of something.
FaultEffect BringChanged(const FaultContext& context, OnuReport& report, RandomStream& random) {
  if (!context.asked_again) return FaultEffect::kHarmless;
  report.reported_type =
      report.reported_type == kUnknownReportedType ? context.type : kUnknownReportedType;
  std::uint32_t* number = AnyNumber(report, random);
  if (number != nullptr) ++*number;
  return FaultEffect::kHarmful;
}

}  // namespace

const char* ToText(FaultKind kind) {
  switch (kind) {
    case FaultKind::kMissing:
      return "missing";
    case FaultKind::kOnes:
      return "ones";
    case FaultKind::kTruncated:
      return "truncated";
    case FaultKind::kCase:
      return "case";
    case FaultKind::kPadding:
      return "padding";
    case FaultKind::kGarbage:
      return "garbage";
    case FaultKind::kUnknown:
      return "unknown";
    case FaultKind::kChanged:
      return "changed";
  }
  return "";
}

FaultEffect BringFault(FaultKind kind, const FaultContext& context, RandomStream& random,
                       OnuReport& report) {
  switch (kind) {
    case FaultKind::kMissing:
      return BringMissing(report, random);
    case FaultKind::kOnes:
      return BringOnes(report, random);
    case FaultKind::kTruncated:
      return BringTruncated(report, random);
    case FaultKind::kCase:
      return BringCase(report, random);
    case FaultKind::kPadding:
      return BringPadding(report, random);
    case FaultKind::kGarbage:
      return BringGarbage(report, random);
    case FaultKind::kUnknown:
      return BringUnknown(context, report, random);
    case FaultKind::kChanged:
      return BringChanged(context, report, random);
  }
  return FaultEffect::kNone;
}

}  // namespace olt_host
