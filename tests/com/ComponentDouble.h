// The test double behind the COM interface. Its service objects do what the text of a command says and record their
// calls.
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
    std::vector<unsigned long> threads;  ///< on which service objects were created, called and terminated
    host::String lastCommand;            ///< of NotifyMe, unchanged
    std::string raised;                  ///< "name|text" after the last RAISE
    std::size_t liveWindows = 0;
    int lostHomes = 0;
    bool endsQuietly = false;  ///< service objects do not raise SHUTDOWN
    std::optional<host::String> caption;
    std::optional<int> makeError;
    std::optional<int> terminateError;
};

/// The process's double. The fixture resets it for each test.
ComponentDouble& TheDouble();

}  // namespace tests::com
