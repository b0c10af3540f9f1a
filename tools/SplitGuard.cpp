#include "tools/SplitGuard.h"

#include <chrono>
#include <cstdlib>
#include <future>
#include <ostream>
#include <thread>
#include <utility>

namespace tools {

void SplitOrEnd(std::string_view verb, std::string_view field, const std::function<void()>& work, Console& console) {
    constexpr std::chrono::seconds kLongestWait{10};
    std::packaged_task<void()> task(work);
    std::future<void> done = task.get_future();
    std::thread worker(std::move(task));
    if (done.wait_for(kLongestWait) == std::future_status::timeout) {
        console.err << "backproc " << verb << ": no result after ten seconds; a double quote that opens " << field
                    << " is not closed: close it\n"
                    << std::flush;
        std::_Exit(kFailure);
    }
    worker.join();
    done.get();
}

}  // namespace tools
