#include "exchange/csv_rows.h"

#include <algorithm>

namespace exchange {
namespace {

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
        if (!result_.rows.empty())
            row_.cells.reserve(result_.rows.back().cells.size());
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
        const bool isLineEnd = !isQuoted && (character == '\n' || character == '\r');
        if (isLineEnd && std::any_of(std::begin(counts), std::end(counts), [](std::size_t times) { return times > 0; }))
            break;
        if (!isQuoted && which != std::string_view::npos)
            ++counts[which];
    }
    return Separators[static_cast<std::size_t>(std::max_element(std::begin(counts), std::end(counts)) - counts)];
}

} // namespace exchange
