#include "host/DevelopmentValues.h"

#include "host/ProcessLife.h"
#include "host/frmBackProcessMain.h"
#include "routing/CommandInterpreter.h"

namespace host {

std::optional<String> DevelopmentValue(StringView name) {
    if (name == u"CurrentDesignName") return routing::CurrentDesignName;
    if (name == u"LanguagePath") return routing::LanguagePath;
    // Looking must not load the form.
    const bool isCaption = name == u"Caption" && MainFormExists() && MainForm().IsLoaded();
    return isCaption ? std::optional(MainForm().Caption()) : std::nullopt;
}

}  // namespace host
