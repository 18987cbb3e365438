#pragma once

#include <functional>
#include <string>

namespace tally {

bool IsZip(const std::string& bytes);

/// Gives the texts of an archive to `work`, by their names, one after the other, and the names of what else it holds
/// (pictures, archives within it) to `leaveOut`. Throws a Failure, in which `path` stands, for an archive that is
/// damaged, locked with a password, or unpacks to more than any log has.
void ForEachMember(const std::string& bytes, const std::string& path,
    const std::function<void(const std::string& name, const std::string& contents)>& work,
    const std::function<void(const std::string& name)>& leaveOut);

} // namespace tally
