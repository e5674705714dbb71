#include "exchange/csv_rows.h"

#include <csv.h>

#include <new>
#include <utility>

namespace tarvik::exchange {
namespace {

// The parser, fed with one line after the other so that the line of each row is known.
class CsvFeed {
 public:
  CsvFeed(CsvShape shape, const std::function<bool(CsvRow&&)>& take) : take_(take) {
    if (csv_init(&parser_, 0) != 0) throw std::bad_alloc();
    csv_set_delim(&parser_, static_cast<unsigned char>(shape.separator));
    csv_set_quote(&parser_, static_cast<unsigned char>(shape.quote));
  }
  CsvFeed(const CsvFeed&) = delete;
  CsvFeed& operator=(const CsvFeed&) = delete;
  ~CsvFeed() { csv_free(&parser_); }

  // False once the rows are no longer wanted or the row is past the limits.
  bool feed(std::string_view line, int number) {
    if (!isOpen_ && isBlank(line)) return take_({.line = number, .cells = {std::string()}});
    if (!isOpen_) begin(number);
    length_ += line.size();
    if (line.size() > kLongestLine || length_ > kLongestRow)
      isTooLong_ = true;
    else if (csv_parse(&parser_, line.data(), line.size(), &onCell, &onRow, this) != line.size())
      throw std::bad_alloc();
    return isWanted_ && !isTooLong_;
  }

  CsvEnd finish() {
    const bool isInQuotes = isOpen_ && parser_.quoted != 0 && parser_.pstate == kInsideCell;
    const int line = row_.line;
    if (isWanted_ && !isTooLong_) csv_fini(&parser_, &onCell, &onRow, this);
    if (isTooLong_) return {CsvEnd::Fault::RowTooLong, line};
    return isInQuotes ? CsvEnd{CsvEnd::Fault::OpenQuote, line} : CsvEnd{};
  }

 private:
  static constexpr int kInsideCell = 2;

  static bool isBlank(std::string_view line) {
    return line.find_first_not_of(" \t\r\n") == std::string_view::npos;
  }

  void begin(int number) {
    row_ = {.line = number, .cells = {}};
    isOpen_ = true;
    length_ = 0;
  }

  static void onCell(void* bytes, std::size_t size, void* self) {
    auto& feed = *static_cast<CsvFeed*>(self);
    if (feed.row_.cells.size() == kMostCells)
      feed.isTooLong_ = true;
    else
      feed.row_.cells.emplace_back(static_cast<const char*>(bytes), size);
  }

  static void onRow(int, void* self) {
    auto& feed = *static_cast<CsvFeed*>(self);
    feed.isOpen_ = false;
    if (feed.isTooLong_) return;
    feed.isWanted_ = feed.take_(std::move(feed.row_));
  }

  const std::function<bool(CsvRow&&)>& take_;
  csv_parser parser_{};
  CsvRow row_;
  std::size_t length_ = 0;
  bool isOpen_ = false;
  bool isWanted_ = true;
  bool isTooLong_ = false;
};

// How long the first line of a text is, its end included: LF, CR LF or CR.
std::size_t lineLength(std::string_view text) {
  const std::size_t end = text.find_first_of("\r\n");
  if (end == std::string_view::npos) return text.size();
  return end + (text.substr(end).starts_with("\r\n") ? 2 : 1);
}

}  // namespace

CsvEnd readCsv(std::string_view text, CsvShape shape, const std::function<bool(CsvRow&&)>& take) {
  CsvFeed feed(shape, take);
  for (int number = 1; !text.empty(); ++number) {
    const std::size_t length = lineLength(text);
    if (!feed.feed(text.substr(0, length), number)) break;
    text.remove_prefix(length);
  }
  return feed.finish();
}

}  // namespace tarvik::exchange
