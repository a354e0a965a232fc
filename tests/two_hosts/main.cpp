// Answers all questions on the host that the program is linked with, as text on the standard output.
#include <iostream>
#include <string_view>

#include "host/host.h"
#include "tests/two_hosts/answers.h"
#include "tests/two_hosts/world.h"

int main() {
    if (std::string_view(host::host_name()) != CONTEXTDATA_TEST_HOST) {
        std::cerr << "built for " << CONTEXTDATA_TEST_HOST << " but served by " << host::host_name() << '\n';
        return 1;
    }
    const std::unique_ptr<two_hosts::World> world = two_hosts::buildWorld();
    two_hosts::answerCompletions(std::cout);
    two_hosts::answerQueries(std::cout);
    two_hosts::answerValues(std::cout);
    return std::cout.flush() ? 0 : 1;
}
