#pragma once

#include "platform/dialog.h"

#include <array>

/// The commands whose state the frame keeps. Setting a state only marks it; a popup takes it over when it opens.
class CUpdateTable {
public:
    CUpdateTable();

    void EnableAll(bool enable);
    void SetCheck(UINT command, bool checked);
    void ApplyTo(HMENU menu) const;

private:
    struct State {
        UINT command;
        bool enabled;
        bool checked;
    };

    std::array<State, 16> states_;
};
