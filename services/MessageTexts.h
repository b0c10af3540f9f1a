// Texts for the user: localised texts with their English defaults, the common error reports, and the one way to show a
// message. It chooses between the system's message box and the suite's own, which also knows "Yes To All".
#pragma once

#include <cstdint>
#include <optional>

#include "runtime/MessageBoxPort.h"
#include "runtime/Text.h"

namespace services {

using runtime::MessageHelp;
using runtime::String;
using runtime::StringView;

/// Style bits of messages: the platform's own, and one of the suite's.
enum MessageFlags : std::int32_t {
    kSuiteBox = 8,
    kExclamation = 48,
    kSystemModal = 4096,
};

/// The text under `textId` in the current language, or `defaultText`.
String GetLocalText(StringView defaultText, StringView textId);

/// Reports an error of the suite's common table: its text and `detail`, system-modal, with an exclamation icon. A
/// number that the table does not have is reported all the same, by an empty message without an icon. The errors of
/// reader and kernel pass.
void ShowError(std::int32_t& errorNumber, StringView detail);

/// Shows a message and returns the code of the pressed button (OK 1, Cancel 2, Abort 3, Retry 4, Ignore 5, Yes 6,
/// No 7; Yes To All 8 from the suite's box). Without a title: the product's name. With kSuiteBox in the flags the
/// suite's box is shown (ProcessValues::suiteMessageBox), which has no help; error 91 without one.
std::int32_t ShowMessage(StringView prompt, std::int32_t flags, const std::optional<String>& title = std::nullopt,
                         const MessageHelp& help = {});

}  // namespace services
