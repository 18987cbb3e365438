#include "exchange/read_file.h"

#include "exchange/csv_rows.h"
#include "exchange/own_files.h"

namespace exchange {

FileFacts ReadFile(std::string_view bytes, Batch* batch) {
    FileFacts facts;
    const std::string text = DecodeText(bytes, &facts.isUtf8);
    if (IsOwnJson(text)) {
        facts.format = "Odoledger JSON";
        ReadOwnJson(text, batch);
    } else if (IsOwnCsv(text)) {
        facts.format = "Odoledger CSV";
        ReadOwnCsv(text, batch);
    }
    return facts;
}

} // namespace exchange
