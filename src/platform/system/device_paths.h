#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace device {
inline constexpr const wchar_t* DocumentsPath = L"\\My Documents";
inline constexpr const wchar_t* ProgramPath = L"\\Program Files\\Odoledger";

/// The host's path of the program file.
const std::string& ProgramFile();
/// Makes the documents folder if it is missing; 0 or an error number.
std::int32_t MakeDocumentsFolder();

struct DocumentFile {
    std::string name; ///< UTF-8
    std::uint64_t size;
    bool readOnly;
};
/// The files of the documents folder by name, without its folders.
std::vector<DocumentFile> ListDocuments();
/// No write permission for anybody.
bool IsReadOnlyMode(unsigned mode);
} // namespace device
