#include "exchange/csv_rows.h"

#include "platform/utf8.h"

#include <algorithm>

namespace exchange {
namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

/// The characters from 0x80 to 0x9F; those above are the same as in Unicode. The five that there are not become
/// U+FFFD.
constexpr wchar_t Windows1252[] = {0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030,
    0x0160, 0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD, 0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178};

class Reader {
public:
    Reader(std::string_view text, char separator)
        : text_(text)
        , separator_(separator) { }

    CsvRows Read() {
        while (place_ < text_.size())
            Take(text_[place_++]);
        result_.endsInQuotes = isQuoted_;
        EndRow();
        return std::move(result_);
    }

private:
    bool IsNext(char character) const { return place_ < text_.size() && text_[place_] == character; }

    void Take(char character) {
        const bool isLineEnd = character == '\n' || character == '\r';
        if (isQuoted_ && character != '"')
            TakeQuoted(character);
        else if (isQuoted_)
            TakeQuoteInQuotes();
        else if (character == '"' && cell_.empty())
            isQuoted_ = wasQuoted_ = true;
        else if (character == separator_)
            EndCell();
        else if (isLineEnd)
            EndLine(character);
        else
            cell_ += character;
    }

    void TakeQuoted(char character) {
        cell_ += character;
        if (character == '\n' || (character == '\r' && !IsNext('\n')))
            ++line_;
    }

    void TakeQuoteInQuotes() {
        isQuoted_ = IsNext('"');
        if (isQuoted_) {
            cell_ += '"';
            ++place_;
        }
    }

    void EndCell() {
        row_.cells.push_back(std::move(cell_));
        cell_.clear();
        wasQuoted_ = false;
    }

    void EndLine(char character) {
        if (character == '\r' && IsNext('\n'))
            ++place_;
        EndRow();
        row_.line = ++line_;
    }

    void EndRow() {
        const bool isEmpty = row_.cells.empty() && cell_.empty() && !wasQuoted_;
        EndCell();
        if (!isEmpty)
            result_.rows.push_back(std::move(row_));
        row_ = {};
    }

    std::string_view text_;
    char separator_;
    std::size_t place_ = 0;
    int line_ = 1;
    bool isQuoted_ = false;
    bool wasQuoted_ = false;
    std::string cell_;
    CsvRow row_;
    CsvRows result_;
};

} // namespace

CsvRows ReadCsvRows(std::string_view text, char separator) {
    return Reader(text, separator).Read();
}

char SeparatorOf(std::string_view text) {
    constexpr std::string_view Separators = ",;\t";
    std::size_t counts[Separators.size()] = {};
    bool isQuoted = false;
    for (const char character : text) {
        if (character == '"')
            isQuoted = !isQuoted;
        const std::size_t which = Separators.find(character);
        if (!isQuoted && (character == '\n' || character == '\r'))
            break;
        if (!isQuoted && which != std::string_view::npos)
            ++counts[which];
    }
    return Separators[static_cast<std::size_t>(std::max_element(std::begin(counts), std::end(counts)) - counts)];
}

std::string DecodeText(std::string_view bytes, bool* isUtf8) {
    if (bytes.substr(0, ByteOrderMark.size()) == ByteOrderMark)
        bytes.remove_prefix(ByteOrderMark.size());
    std::string text = device::ToUtf8(device::FromUtf8(bytes));
    *isUtf8 = text == bytes;
    if (*isUtf8)
        return text;
    std::wstring wide;
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        wide += code >= 0x80 && code < 0xA0 ? Windows1252[code - 0x80] : static_cast<wchar_t>(code);
    }
    return device::ToUtf8(wide);
}

} // namespace exchange
