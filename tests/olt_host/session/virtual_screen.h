// A terminal's screen, as far as sessions use one: what stands where after the bytes
// that were sent. Lines that scroll out stay.
#ifndef TESTS_OLT_HOST_SESSION_VIRTUAL_SCREEN_H
#define TESTS_OLT_HOST_SESSION_VIRTUAL_SCREEN_H

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <string>
#include <vector>

class VirtualScreen {
 public:
  explicit VirtualScreen(std::size_t columns = 80) : columns_(columns) {}

  void Write(const std::string& bytes) {
    for (const char byte : bytes) Take(byte);
  }

  // All lines, trailing blanks removed.
  std::vector<std::string> Lines() const {
    std::vector<std::string> lines;
    for (const std::vector<std::string>& cells : rows_) {
      std::string line;
      for (const std::string& cell : cells) line += cell;
      line.erase(line.find_last_not_of(' ') + 1);
      lines.push_back(line);
    }
    return lines;
  }

  std::string Text() const {
    std::string text;
    for (const std::string& line : Lines()) text += line + "\n";
    return text;
  }

  // The line of the cursor up to its last character, blanks before the cursor kept.
  std::string CursorLine() const {
    std::string line;
    for (const std::string& cell : rows_[row_]) line += cell;
    while (!line.empty() && line.back() == ' ' && line.size() > column_) line.pop_back();
    return line;
  }
  std::size_t column() const { return column_; }
  std::size_t bells() const { return bells_; }

 private:
  void Take(char byte) {
    if (!sequence_.empty()) {
      sequence_ += byte;
      const bool is_csi = sequence_.size() > 1 && sequence_[1] == '[';
      if (sequence_.size() == 2 && is_csi) return;
      if (is_csi && static_cast<unsigned char>(byte) < 0x40) return;
      if (is_csi) Control(byte);
      sequence_.clear();
    } else if (byte == '\x1b') {
      sequence_ = byte;
    } else if (byte == '\r') {
      column_ = 0;
    } else if (byte == '\n') {
      NextRow();
    } else if (byte == '\b') {
      column_ -= column_ > 0 ? 1 : 0;
    } else if (byte == '\a') {
      ++bells_;
    } else if ((static_cast<unsigned char>(byte) & 0xC0U) == 0x80U) {
      if (last_ != nullptr) *last_ += byte;
    } else if (static_cast<unsigned char>(byte) >= 0x20) {
      Put(byte);
    }
  }

  void NextRow() {
    if (++row_ == rows_.size()) rows_.emplace_back();
    last_ = nullptr;
  }

  void Put(char byte) {
    if (column_ == columns_) {
      column_ = 0;
      NextRow();
    }
    std::vector<std::string>& row = rows_[row_];
    if (row.size() <= column_) row.resize(column_ + 1, " ");
    row[column_] = std::string(1, byte);
    last_ = &row[column_++];
  }

  void Control(char final) {
    std::size_t count = 0;
    for (const char c : sequence_) {
      if (std::isdigit(static_cast<unsigned char>(c)) != 0) {
        count = count * 10 + static_cast<std::size_t>(c - '0');
      }
    }
    const std::size_t times = std::max<std::size_t>(count, 1);
    std::vector<std::string>& row = rows_[row_];
    column_ = std::min(column_, columns_ - 1);
    switch (final) {
      case 'A':
        row_ -= std::min(times, row_);
        break;
      case 'B':
        for (std::size_t i = 0; i < times; ++i) NextRow();
        break;
      case 'C':
        column_ = std::min(column_ + times, columns_ - 1);
        break;
      case 'D':
        column_ -= std::min(times, column_);
        break;
      case 'K':
        if (row.size() > column_) row.resize(column_);
        break;
      case 'J':
        if (row.size() > column_) row.resize(column_);
        rows_.resize(row_ + 1);
        break;
      case 'H':
        row_ = 0;
        column_ = 0;
        break;
      case 'P':
        for (std::size_t i = 0; i < times && column_ < row.size(); ++i) {
          row.erase(row.begin() + static_cast<std::ptrdiff_t>(column_));
        }
        break;
      case '@':
        if (row.size() > column_) {
          row.insert(row.begin() + static_cast<std::ptrdiff_t>(column_), times, " ");
        }
        break;
      default:
        break;
    }
  }

  std::size_t columns_;
  std::vector<std::vector<std::string>> rows_{1};
  std::size_t row_ = 0;
  std::size_t column_ = 0;
  std::size_t bells_ = 0;
  std::string* last_ = nullptr;
  std::string sequence_;
};

#endif  // TESTS_OLT_HOST_SESSION_VIRTUAL_SCREEN_H
