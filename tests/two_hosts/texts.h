// Texts of either width.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "host/i18n.h"

namespace two_hosts {

inline std::string narrow(std::u16string_view text) { return fl::i18n::to_string(text); }
inline std::u16string widen(std::string_view text) { return fl::i18n::to_ustring(text); }

inline void ask(std::ostream& out, const std::string& question) { out << "? " << question << '\n'; }
inline void say(std::ostream& out, const std::string& answer) { out << "  " << answer << '\n'; }
inline void say(std::ostream& out, bool answer) { say(out, std::string(answer ? "yes" : "no")); }
inline void say(std::ostream& out, const std::vector<std::u16string>& names) {
    for (const std::u16string& name : names) {
        say(out, narrow(name));
    }
}

}  // namespace two_hosts
