#include "platform/system/number_pattern.h"

#include <algorithm>

namespace device {
namespace {

constexpr std::string_view ManyDigits = "1111111111111111";
/// What a pattern that was learned has to get right before it is used.
constexpr const char* Proofs[] = {"0", "7", "-1", "10", "-10", "999", "-999", "1000", "-1000", "1234", "9999", "10000",
    "12345", "-12345", "123456", "-123456", "1234567", "12345678", "-123456789", "2147483647", "-2147483648",
    "340282346638528859811704183484516925440", "0.5", "0.50", "0.05", "1.00", "12.30", "-3.10", "1234.56", "-1234.56",
    "1234567.89"};

} // namespace

std::optional<NumberPattern> NumberPattern::Learn(const Library& library, const std::wstring& digits) {
    NumberPattern pattern;
    pattern.digits_ = digits;
    const auto one = pattern.LearnSides(library("1"), &pattern.positive_);
    const auto minusOne = pattern.LearnSides(library("-1"), &pattern.negative_);
    if (!one || one != minusOne || !pattern.LearnFraction(*one)) {
        return std::nullopt;
    }
    Sides ignored;
    const auto many = pattern.LearnSides(library(ManyDigits), &ignored);
    const auto four = pattern.LearnSides(library(ManyDigits.substr(0, 4)), &ignored);
    if (!many || !four || !pattern.LearnGroups(*many, *four) || !pattern.AgreesWith(library)) {
        return std::nullopt;
    }
    return pattern;
}

/// What stands between the sides, from the first digit to the last.
std::optional<std::wstring> NumberPattern::LearnSides(const std::optional<std::wstring>& text, Sides* sides) const {
    const std::size_t first = text ? text->find_first_of(digits_) : std::wstring::npos;
    if (first == std::wstring::npos) {
        return std::nullopt;
    }
    const std::size_t end = text->find_last_of(digits_) + 1;
    sides->before = text->substr(0, first);
    sides->behind = text->substr(end);
    return text->substr(first, end - first);
}

bool NumberPattern::LearnFraction(const std::wstring& one) {
    if (one.front() != digits_[1])
        return false;
    const std::size_t fraction = one.find_first_of(digits_, 1);
    if (fraction == std::wstring::npos)
        return true;
    point_ = one.substr(1, fraction - 1);
    fractionDigits_ = one.size() - fraction;
    return !point_.empty();
}

bool NumberPattern::LearnGroups(const std::wstring& longNumber, const std::wstring& fourDigits) {
    const std::wstring whole
        = longNumber.substr(0, longNumber.size() - (fractionDigits_ > 0 ? fractionDigits_ + point_.size() : 0));
    const auto other = [this](wchar_t character) { return !IsDigit(character); };
    const auto lastGroup = std::find_if(whole.rbegin(), whole.rend(), other);
    if (lastGroup == whole.rend()) {
        return whole.size() == ManyDigits.size();
    }
    const auto separatorEnd = std::find_if_not(lastGroup, whole.rend(), other);
    const auto nextGroup = std::find_if(separatorEnd, whole.rend(), other);
    separator_.assign(separatorEnd.base(), lastGroup.base());
    lastGroup_ = static_cast<std::size_t>(lastGroup - whole.rbegin());
    otherGroups_ = static_cast<std::size_t>(nextGroup - separatorEnd);
    const bool fourGrouped = fourDigits.find(separator_) == 1;
    leastDigitsInFront_ = fourGrouped || lastGroup_ > 3 ? 1 : 2;
    return true;
}

bool NumberPattern::AgreesWith(const Library& library) const {
    return std::all_of(std::begin(Proofs), std::end(Proofs), [&](const char* number) {
        const auto written = Write(number);
        return !written || written == library(number);
    });
}

void NumberPattern::WriteWhole(std::string_view whole, std::wstring* text) const {
    const bool grouped = lastGroup_ > 0 && whole.size() >= lastGroup_ + leastDigitsInFront_;
    for (std::size_t left = whole.size(); left > 0; --left) {
        if (grouped && left != whole.size() && left >= lastGroup_ && (left - lastGroup_) % otherGroups_ == 0) {
            *text += separator_;
        }
        *text += digits_[static_cast<std::size_t>(whole[whole.size() - left] - '0')];
    }
}

std::optional<std::wstring> NumberPattern::Write(std::string_view number) const {
    const bool minus = !number.empty() && number.front() == '-';
    number.remove_prefix(minus ? 1 : 0);
    const std::size_t point = std::min(number.find('.'), number.size());
    const std::string_view whole = number.substr(0, point);
    std::string_view fraction = number.substr(std::min(point + 1, number.size()));
    const std::size_t meaning = fraction.find_last_not_of('0') + 1;
    if (whole.empty() || (whole.size() > 1 && whole.front() == '0') || meaning > fractionDigits_) {
        return std::nullopt;
    }
    fraction = fraction.substr(0, std::min(fraction.size(), fractionDigits_));
    const Sides& sides = minus ? negative_ : positive_;
    std::wstring text;
    text.reserve(32); // the usual price, in one piece
    text += sides.before;
    WriteWhole(whole, &text);
    if (fractionDigits_ > 0) {
        text += point_;
        for (std::size_t place = 0; place < fractionDigits_; ++place) {
            text += digits_[place < fraction.size() ? static_cast<std::size_t>(fraction[place] - '0') : 0];
        }
    }
    text += sides.behind;
    return text;
}

} // namespace device
