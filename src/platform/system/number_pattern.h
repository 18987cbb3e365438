#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace device {
/// How a locale writes plain numbers, learned from numbers that its library wrote. A list of a hundred thousand prices
/// is then written without asking the library for each.
class NumberPattern {
public:
    using Library = std::function<std::optional<std::wstring>(std::string_view number)>;

    /// Nothing where the locale writes some number otherwise than this pattern can: the library then writes all.
    /// `digits` are the ten that the locale uses.
    static std::optional<NumberPattern> Learn(const Library& library, const std::wstring& digits);

    /// `number` is plain decimal text such as "-1234.5". Nothing for one that would have to be rounded, or that has
    /// needless zeros in front.
    std::optional<std::wstring> Write(std::string_view number) const;

private:
    struct Sides {
        std::wstring before;
        std::wstring behind;
    };

    bool IsDigit(wchar_t character) const { return digits_.find(character) != std::wstring::npos; }
    std::optional<std::wstring> LearnSides(const std::optional<std::wstring>& text, Sides* sides) const;
    bool LearnFraction(const std::wstring& one);
    bool LearnGroups(const std::wstring& longNumber, const std::wstring& fourDigits);
    bool AgreesWith(const Library& library) const;
    void WriteWhole(std::string_view whole, std::wstring* text) const;

    std::wstring digits_;
    Sides positive_;
    Sides negative_;
    std::wstring point_; ///< between the whole and the fraction
    std::size_t fractionDigits_ = 0;
    std::wstring separator_; ///< between groups; empty where there are none
    std::size_t lastGroup_ = 0;
    std::size_t otherGroups_ = 0;
    std::size_t leastDigitsInFront_ = 1; ///< that the first group has, or else the number stays ungrouped
};
} // namespace device
