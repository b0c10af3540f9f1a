// Reads lines of text while the caller's message loop runs.
#include "tools/LineReader.h"

#include <system_error>

#include "tools/MessagePump.h"

namespace tools {

namespace {

runtime::win32::KernelHandle NewEvent() {
    runtime::win32::KernelHandle event(CreateEventW(nullptr, FALSE, FALSE, nullptr));
    if (!event) throw std::system_error(static_cast<int>(GetLastError()), std::system_category(), "CreateEvent");
    return event;
}

}  // namespace

LineReader::LineReader(std::istream& in)
    : in_(in), wanted_(NewEvent()), ready_(NewEvent()), thread_([this] { Read(); }) {}

LineReader::~LineReader() {
    stopped_ = true;
    SetEvent(wanted_.Get());
    thread_.join();
}

std::optional<std::string> LineReader::Next() {
    SetEvent(wanted_.Get());
    PumpUntil(ready_.Get());
    return std::move(line_);
}

void LineReader::Read() {
    while (WaitForSingleObject(wanted_.Get(), INFINITE) == WAIT_OBJECT_0 && !stopped_) {
        std::string line;
        if (std::getline(in_, line)) {
            if (line.ends_with('\r')) line.pop_back();
            line_ = std::move(line);
        } else {
            line_.reset();
        }
        SetEvent(ready_.Get());
    }
}

}  // namespace tools
