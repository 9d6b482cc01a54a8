#pragma once

#include <string>

namespace platform {

// Gives a new, still private file what belongs to the file that it is about to replace: owner and
// group as far as this user may, permissions, the access list, and the attributes of users and of
// the security of the system. Nobody but the writer may read the new file who couldn't read the old
// one: where the group or the access list can't be kept, the rights that hung on them go. Used
// inside this folder only.
void takeRights(int descriptor, const std::string& from);

} // namespace platform
