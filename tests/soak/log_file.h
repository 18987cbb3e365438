#pragma once

#include <memory>
#include <string>
#include <vector>

struct sqlite3;

/// A data file as another program sees it: through a connection of its own.
class LogFile {
public:
    explicit LogFile(const std::string& path);

    void Run(const std::string& sql);
    /// The first column of all rows.
    std::vector<std::string> Column(const std::string& sql);
    std::string Text(const std::string& sql);
    /// Throws when the file does not stand an integrity check.
    void RequireIntegrity();

private:
    struct Close {
        void operator()(sqlite3* connection) const;
    };

    std::unique_ptr<sqlite3, Close> connection_;
};
