// Questions and their answers as text: a question stands on a line that begins with "? ", its answers on indented
// lines.
#pragma once

#include <ostream>

namespace two_hosts {

/// What follows typed text.
void answerCompletions(std::ostream& out);

/// What the library says about classes, namespaces and names.
void answerQueries(std::ostream& out);

/// What the library says about values.
void answerValues(std::ostream& out);

}  // namespace two_hosts
