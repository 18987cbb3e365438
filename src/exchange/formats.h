#pragma once

#include "exchange/drafts.h"

/// The files of other programs. Each is told by its contents and read into drafts.
namespace exchange {

/// The beginning of a file, by which it is told.
struct Beginning {
    std::vector<CsvRow> rows;
    Table titles; ///< as if the first row had them

    /// Of each row that is a mark such as "## Log".
    std::vector<std::string> marks;
};

bool IsFuelio(const Beginning& file);
void ReadFuelio(std::vector<CsvRow> rows, Drafts* drafts);

bool IsDrivvo(const Beginning& file);
void ReadDrivvo(std::vector<CsvRow> rows, Drafts* drafts);

bool IsACar(const Beginning& file);
void ReadACar(std::vector<CsvRow> rows, Drafts* drafts);

bool IsFuelly(const Beginning& file);
void ReadFuelly(std::vector<CsvRow> rows, Drafts* drafts);

bool IsSimplyAuto(const Beginning& file);
void ReadSimplyAuto(std::vector<CsvRow> rows, Drafts* drafts);

bool IsLubeLogger(const Beginning& file);
void ReadLubeLogger(std::vector<CsvRow> rows, Drafts* drafts);

} // namespace exchange
