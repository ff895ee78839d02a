#include "formats/date_text.h"

#include <chrono>
#include <cmath>
#include <cstdio>

namespace quorval {
namespace {

constexpr long long kSecondsOfDay = 86400;

std::string TimeText(long long seconds) {
  char text[32];
  std::snprintf(text, sizeof text, "%02lld:%02lld:%02lld", seconds / 3600, seconds / 60 % 60,
                seconds % 60);
  return text;
}

// Day 60 of the 1900 system is a 29 February that never was; the days before it stand one off.
std::chrono::sys_days DayOf(long long day, DateSystem system) {
  using namespace std::chrono;
  if (system == DateSystem::k1904) return sys_days{year{1904} / 1 / 1} + days{day};
  return sys_days{year{1899} / 12 / 30} + days{day < 60 ? day + 1 : day};
}

}  // namespace

DateKind KindOfBuiltInFormat(int number) {
  const auto within = [&](int first, int last) { return number >= first && number <= last; };
  if (within(14, 17) || number == 22 || within(27, 31) || number == 36 || within(50, 54) ||
      within(57, 58))
    return DateKind::kDate;
  if (within(18, 21) || within(32, 35) || within(45, 47) || within(55, 56)) return DateKind::kTime;
  return DateKind::kNone;
}

DateKind KindOfFormatCode(std::string_view code) {
  bool months = false, days = false, hours = false;
  for (std::size_t i = 0; i < code.size(); ++i) {
    switch (code[i]) {
      case '"':
        i = std::min(code.find('"', i + 1), code.size());
        break;
      case '\\':
      case '_':
      case '*':
        ++i;
        break;
      case '[': {
        const std::size_t end = std::min(code.find(']', i), code.size());
        const std::string_view inside = code.substr(i + 1, end - i - 1);
        if (!inside.empty() && inside.find_first_not_of("hHmMsS") == inside.npos) hours = true;
        i = end;
        break;
      }
      case 'G':
      case 'g':
        if (code.substr(i + 1).starts_with("eneral")) i += 6;
        break;
      case 'm':
      case 'M':
        months = true;
        break;
      case 'y':
      case 'Y':
      case 'd':
      case 'D':
        days = true;
        break;
      case 'h':
      case 'H':
      case 's':
      case 'S':
        hours = true;
        break;
      case ';':
        i = code.size();
        break;
      default:
        break;
    }
  }
  if (days || (months && !hours)) return DateKind::kDate;
  return hours ? DateKind::kTime : DateKind::kNone;
}

std::optional<std::string> DateText(double days, DateKind kind, DateSystem system) {
  constexpr double kLastDay = 2958466;  // behind 31 December 9999
  if (kind == DateKind::kNone || !(days >= 0) || days >= kLastDay) return std::nullopt;
  const long long seconds = std::llround(days * kSecondsOfDay);
  if (kind == DateKind::kTime) return TimeText(seconds);
  const long long time = seconds % kSecondsOfDay;
  const std::chrono::year_month_day date{DayOf(seconds / kSecondsOfDay, system)};
  char text[32];
  std::snprintf(text, sizeof text, "%04d-%02u-%02u", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
  return time == 0 ? std::string(text) : std::string(text) + " " + TimeText(time);
}

}  // namespace quorval
