// Stands behind the COM edge in its tests: service objects that do what the text of a command says, and record what
// they were asked.
//
//     RAISE name|text   raises the event with these strings, and records what became of them
//     FAIL number|text  throws that error of the runtime; MEMORY, ODD: throws something else
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "host/com/Component.h"

namespace tests::com {

struct ComponentDouble {
    std::vector<std::string> log;
    std::vector<unsigned long> threads;  ///< on which service objects were made, called and terminated
    host::String lastCommand;            ///< of NotifyMe, unit by unit
    std::string raised;                  ///< "name|text" as the last RAISE left them
    std::size_t liveWindows = 0;
    int lostHomes = 0;
    bool endsQuietly = false;  ///< service objects do not say SHUTDOWN
    std::optional<host::String> caption;
    std::optional<int> makeError;
    std::optional<int> terminateError;
};

/// One for the process; the fixture starts each test with a new one.
ComponentDouble& TheDouble();

}  // namespace tests::com
