#pragma once

#include "platform/system/date_order.h"
#include "platform/types.h"

#include <string>
#include <vector>

namespace device {

/// A date under a person's hands: the parts of a short date, one of them chosen, and what is typed into it so far.
class DateParts {
public:
    /// A run of the date as it shows.
    struct Piece {
        std::wstring text;
        int part = 0; ///< from 1; 0 for the text between two parts
    };

    explicit DateParts(std::vector<ShortDatePart> order)
        : order_(std::move(order)) { }

    /// False for a date that is none of the years 1601 to 9999; then nothing has changed.
    bool Set(const SYSTEMTIME& date);
    /// With what is typed so far taken in, and the day of the week right.
    SYSTEMTIME Get() const;
    std::vector<Piece> Pieces() const;

    /// From 1.
    int Part() const { return part_; }
    /// The chosen part as it shows, with its name: "month 3".
    std::wstring ChosenText() const;
    /// Ends typing in the part that was chosen before; stays within the parts.
    void Choose(int part);
    /// A digit, 0 to 9, typed into the chosen part. A full part chooses the next one.
    void Type(int digit);
    /// Up or down by one, wrapping; a year stops at its ends.
    void Step(int by);
    /// The picker is left: typing is over.
    void Settle();

private:
    using Kind = ShortDatePart::Kind;

    struct Range {
        int first;
        int last;
    };

    Kind ChosenKind() const;
    Range RangeOf(Kind kind) const;
    void EndTyping();
    void Take(Kind kind, int value);
    int CountParts() const;
    std::wstring TypedText() const;

    std::vector<ShortDatePart> order_;
    SYSTEMTIME date_;
    int part_ = 1;
    int typed_ = 0;
    int typedDigits_ = 0;
    /// A day typed before its month and year: it may be impossible only until they are typed too. 0: none.
    int wantedDay_ = 0;
};

} // namespace device
