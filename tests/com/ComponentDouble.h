// A test double replaces the component behind the COM interface. Its service objects record calls, except reads of the
// diagnostics' properties. They execute a command with one of these texts:
//
//     RAISE name|text   raises the event with these strings, and records their values afterwards
//     FAIL number|text  throws this runtime error; MEMORY, ODD and STRANGE throw other exceptions
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "host/com/Component.h"

namespace tests::com {

struct ComponentDouble {
    std::vector<std::string> log;
    std::vector<unsigned long> threads;  ///< the thread of each entry in `log`
    host::String lastCommand;            ///< the unchanged command of the last NotifyMe
    std::string raised;                  ///< the values "name|text" after the last RAISE
    std::size_t liveWindows = 0;
    int lostHomes = 0;
    bool endsQuietly = false;  ///< if true, service objects do not raise SHUTDOWN
    std::optional<host::String> caption;
    std::optional<int> makeError;
    std::optional<int> terminateError;
};

/// Returns the process's test double. The fixture resets the double for each test.
ComponentDouble& TheDouble();

}  // namespace tests::com
