#include <cmath>
#include <map>
#include <optional>

#include "formats/biff_reader.h"
#include "formats/compound_file.h"
#include "formats/file_error.h"
#include "formats/imported_sheet.h"
#include "formats/xls.h"

namespace quorval {
namespace {

using namespace biff;
using U8 = std::uint8_t;
using U16 = std::uint16_t;
using U32 = std::uint32_t;

constexpr int kVersion8 = 0x0600;

[[noreturn]] void Damaged() { throw FileError("the workbook is damaged"); }

// The workbook's stream, which has another name in the versions before 8.
std::string StreamOf(const std::filesystem::path& path) {
  const CompoundFile file(path);
  for (const char* name : {"Workbook", "Book"})
    if (auto stream = file.Stream(name)) return *std::move(stream);
  throw FileError("the file is no Excel workbook");
}

struct Sheet {
  std::string name;
  std::size_t place;
};

// What stands before the sheets.
struct Globals {
  int version = 0;
  DateSystem dates = DateSystem::k1900;
  std::vector<Sheet> sheets{};
  std::vector<std::string> texts{};
  std::map<int, DateKind> codes{};  // of the formats that the workbook brings
  std::vector<int> cell_formats{};  // the number format of each

  DateKind KindOf(std::size_t cell_format) const {
    if (cell_format >= cell_formats.size()) return DateKind::kNone;
    const int number = cell_formats[cell_format];
    const auto code = codes.find(number);
    return code == codes.end() ? KindOfBuiltInFormat(number) : code->second;
  }
};

std::string TakeText(Body& body, std::size_t count, const Globals& globals) {
  return globals.version == kVersion8 ? body.TakeText(count) : body.TakeBytes(count);
}

void TakeSheet(Body body, Globals& globals) {
  constexpr U8 kWorksheet = 0;
  const auto place = body.Take<U32>();
  body.Skip(1);
  const auto kind = body.Take<U8>();
  const auto length = body.Take<U8>();
  const std::string name = TakeText(body, length, globals);
  if (kind == kWorksheet) globals.sheets.push_back({name, place});
}

void TakeFormat(Body body, Globals& globals) {
  const auto number = body.Take<U16>();
  const std::size_t length =
      globals.version == kVersion8 ? body.Take<U16>() : std::size_t{body.Take<U8>()};
  globals.codes[number] = KindOfFormatCode(TakeText(body, length, globals));
}

void TakeTexts(Body body, Globals& globals) {
  body.Skip(8);
  while (!body.AtEnd()) {
    const auto length = body.Take<U16>();
    globals.texts.push_back(body.TakeText(length));
  }
}

Globals ReadGlobals(Stream& stream) {
  Globals globals;
  if (!stream.Next() || stream.record() != Record::kBegin)
    throw FileError("the file is no Excel workbook");
  globals.version = stream.TakeBody().Take<U16>();
  for (;;) {
    if (!stream.Next()) Damaged();
    switch (stream.record()) {
      case Record::kEnd:
        return globals;
      case Record::kPassword:
        throw FileError("the workbook is protected by a password");
      case Record::kDateMode:
        if (stream.TakeBody().Take<U16>() == 1) globals.dates = DateSystem::k1904;
        break;
      case Record::kBoundSheet:
        TakeSheet(stream.TakeBody(), globals);
        break;
      case Record::kFormatRecord:
        TakeFormat(stream.TakeBody(), globals);
        break;
      case Record::kExtendedFormat: {
        Body body = stream.TakeBody();
        body.Skip(2);
        globals.cell_formats.push_back(body.Take<U16>());
        break;
      }
      case Record::kStringTable:
        TakeTexts(stream.TakeBody(), globals);
        break;
      default:
        break;
    }
  }
}

// Thirty bits: a whole number or the upper half of a double, and whether it is a hundredth.
double ShortNumber(U32 bits) {
  constexpr U32 kHundredth = 1, kWhole = 2, kFlags = 3;
  const double number = (bits & kWhole) != 0
                            ? static_cast<double>(static_cast<std::int32_t>(bits) >> 2)
                            : std::bit_cast<double>(std::uint64_t{bits & ~kFlags} << 32);
  return (bits & kHundredth) != 0 ? number / 100 : number;
}

std::string_view ErrorText(U8 code) {
  switch (code) {
    case 0x00:
      return "#NULL!";
    case 0x07:
      return "#DIV/0!";
    case 0x0F:
      return "#VALUE!";
    case 0x17:
      return "#REF!";
    case 0x1D:
      return "#NAME?";
    case 0x24:
      return "#NUM!";
    default:
      return "#N/A";
  }
}

struct Place {
  int column, row;
};

class SheetReader {
 public:
  SheetReader(const Globals& globals, Budget& budget) : globals_(globals), sheet_(budget) {}

  void Take(Stream& stream) {
    switch (stream.record()) {
      case Record::kNumber:
        return TakeNumber(stream.TakeBody());
      case Record::kShortNumber:
        return TakeShortNumbers(stream.TakeBody(), 1);
      case Record::kShortNumbers:
        return TakeShortNumbers(stream.TakeBody(), (stream.bytes().size() - 6) / 6);
      case Record::kLabelString:
        return TakeTableText(stream.TakeBody());
      case Record::kText:
      case Record::kFormattedText:
        return TakeText(stream.TakeBody());
      case Record::kBooleanOrError:
        return TakeBooleanOrError(stream.TakeBody());
      case Record::kFormula:
        return TakeFormula(stream.TakeBody());
      case Record::kFormulaText:
        return TakeFormulaText(stream.TakeBody());
      default:
        return;
    }
  }

  Worksheet Result() && { return std::move(sheet_).Result(); }

 private:
  static Place TakePlace(Body& body) {
    const int row = body.Take<U16>();
    return {body.Take<U16>() + 1, row};
  }

  void Number(Place at, U16 format, double number) {
    sheet_.Number(at.column, at.row, number, globals_.KindOf(format), globals_.dates);
  }

  void TakeNumber(Body body) {
    const Place at = TakePlace(body);
    const auto format = body.Take<U16>();
    Number(at, format, body.TakeDouble());
  }

  void TakeShortNumbers(Body body, std::size_t count) {
    Place at = TakePlace(body);
    for (; count > 0; --count, ++at.column) {
      const auto format = body.Take<U16>();
      Number(at, format, ShortNumber(body.Take<U32>()));
    }
  }

  void TakeTableText(Body body) {
    const Place at = TakePlace(body);
    body.Skip(2);
    const auto number = body.Take<U32>();
    if (number >= globals_.texts.size()) Damaged();
    sheet_.Text(at.column, at.row, globals_.texts[number]);
  }

  void TakeText(Body body) {
    const Place at = TakePlace(body);
    body.Skip(2);
    const auto length = body.Take<U16>();
    sheet_.Text(at.column, at.row, quorval::TakeText(body, length, globals_));
  }

  void BooleanOrError(Place at, U8 value, bool is_error) {
    if (is_error) return sheet_.Text(at.column, at.row, ErrorText(value));
    sheet_.Boolean(at.column, at.row, value != 0);
  }

  void TakeBooleanOrError(Body body) {
    const Place at = TakePlace(body);
    body.Skip(2);
    const auto value = body.Take<U8>();
    BooleanOrError(at, value, body.Take<U8>() != 0);
  }

  // The stored value: a number, or where its last two bytes are all ones something else.
  void TakeFormula(Body body) {
    enum class Kind : U8 { kText, kBoolean, kError, kEmpty };
    const Place at = TakePlace(body);
    const auto format = body.Take<U16>();
    const auto value = body.Take<std::uint64_t>();
    if (value >> 48 != 0xFFFF) return Number(at, format, std::bit_cast<double>(value));
    const auto what = static_cast<U8>(value >> 16);
    switch (static_cast<Kind>(value & 0xFF)) {
      case Kind::kText:
        text_follows_ = at;
        return;
      case Kind::kBoolean:
        return BooleanOrError(at, what, false);
      case Kind::kError:
        return BooleanOrError(at, what, true);
      case Kind::kEmpty:
        return;
    }
    Damaged();
  }

  void TakeFormulaText(Body body) {
    if (!text_follows_) return;
    const auto length = body.Take<U16>();
    sheet_.Text(text_follows_->column, text_follows_->row,
                quorval::TakeText(body, length, globals_));
    text_follows_.reset();
  }

  const Globals& globals_;
  ImportedSheet sheet_;
  std::optional<Place> text_follows_;
};

}  // namespace

std::vector<std::string> XlsSheetNames(const std::filesystem::path& path) {
  static_cast<void>(Budget(path));
  const std::string bytes = StreamOf(path);
  Stream stream(bytes);
  std::vector<std::string> names;
  for (const Sheet& sheet : ReadGlobals(stream).sheets) names.push_back(sheet.name);
  return names;
}

Worksheet ReadXls(const std::filesystem::path& path) {
  Budget budget(path);
  const std::string bytes = StreamOf(path);
  Stream stream(bytes);
  const Globals globals = ReadGlobals(stream);
  if (globals.sheets.empty()) throw FileError("the workbook has no sheet");
  stream.GoTo(globals.sheets.front().place);
  SheetReader reader(globals, budget);
  // Charts inside the sheet are streams of their own, from a begin to an end.
  int depth = 0;
  do {
    if (!stream.Next()) Damaged();
    if (stream.record() == Record::kBegin) {
      ++depth;
    } else if (depth == 0) {
      Damaged();
    } else if (stream.record() == Record::kEnd) {
      --depth;
    } else if (depth == 1) {
      reader.Take(stream);
    }
  } while (depth > 0);
  return std::move(reader).Result();
}

}  // namespace quorval
