// Texts for the user: localised texts with English defaults, the suite's common error reports, and the function that
// shows a message. It uses the system's message box or the suite's own, which also has "Yes To All". Home thread only.
#pragma once

#include <cstdint>
#include <optional>

#include "runtime/MessageBoxPort.h"
#include "runtime/Text.h"

namespace services {

using runtime::MessageHelp;
using runtime::String;
using runtime::StringView;

/// Style bits of messages. kSuiteBox is the suite's own bit; the others are those of the system.
enum MessageFlags : std::int32_t {
    kSuiteBox = 8,
    kExclamation = 48,
    kSystemModal = 4096,
};

/// The text under `textId` in the current language, or `defaultText` if there is none.
String GetLocalText(StringView defaultText, StringView textId);

/// True if the current language is read from right to left.
bool IsRightToLeft();

/// Reports an error of the suite's common table: its text and `detail`, system-modal, with an exclamation icon. If the
/// table does not have the number, an empty message without an icon is shown. Errors of the reader and the kernel reach
/// the caller.
void ShowError(std::int32_t& errorNumber, StringView detail);

/// Shows a message and returns the code of the pressed button: OK 1, Cancel 2, Abort 3, Retry 4, Ignore 5, Yes 6, No 7,
/// Yes To All 8 (suite's box only). The default title is the product's name. The flag kSuiteBox selects the suite's box
/// (ProcessValues::suiteMessageBox), which ignores `help`; error 91 if there is none.
std::int32_t ShowMessage(StringView prompt, std::int32_t flags, const std::optional<String>& title = std::nullopt,
                         const MessageHelp& help = {});

}  // namespace services
