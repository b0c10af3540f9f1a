// These functions return localised texts, report the suite's common errors, and show messages. A message appears in the
// system's message box or in the suite's message box. The suite's box also has "Yes To All". Call the functions only on
// the home thread.
#pragma once

#include <cstdint>
#include <optional>

#include "runtime/MessageBoxPort.h"
#include "runtime/Text.h"

namespace services {

using runtime::MessageHelp;
using runtime::String;
using runtime::StringView;

/// Style bits of messages. kSuiteBox is a bit of the suite. The other bits are bits of the system.
enum MessageFlags : std::int32_t {
    kSuiteBox = 8,
    kExclamation = 48,
    kSystemModal = 4096,
};

/// Returns the text under `textId` in the current language, or `defaultText` if there is no text.
String GetLocalText(StringView defaultText, StringView textId);

/// True if the current language is read from right to left.
bool IsRightToLeft();

/// Reports an error of the suite's common table. The message contains the error's text and `detail`. It is system-modal
/// and has an exclamation icon. If the table does not have the number, the message is empty and has no icon. Errors of
/// the reader and the kernel reach the caller.
void ShowError(std::int32_t& errorNumber, StringView detail);

/// Shows a message and returns the code of the pressed button: OK 1, Cancel 2, Abort 3, Retry 4, Ignore 5, Yes 6, No 7,
/// Yes To All 8 (suite's box only). The default title is the product's name. The flag kSuiteBox selects the suite's box
/// (ProcessValues::suiteMessageBox), which ignores `help`. Error 91 if the suite's box is not set.
std::int32_t ShowMessage(StringView prompt, std::int32_t flags, const std::optional<String>& title = std::nullopt,
                         const MessageHelp& help = {});

}  // namespace services
