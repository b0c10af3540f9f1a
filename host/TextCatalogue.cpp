#include "host/TextCatalogue.h"

#include "dialogs/Qmxquery.h"
#include "dialogs/frmQMXMsgBox.h"
#include "host/frmBackProcessMain.h"
#include "services/LocalTexts.h"

namespace host {
namespace {

using runtime::String;

String UseOf(const runtime::ControlDesign& control, const String& form) {
    String use = control.name;
    if (control.index != runtime::ControlDesign::kNoIndex) {
        use.append(u"(").append(runtime::FromAscii(std::to_string(control.index))).append(u")");
    }
    return use.append(u" of ").append(form);
}

/// Adds the captions of the form and its controls that have a tag. These captions are translated when the form loads.
void AppendTags(std::vector<CatalogueText>& texts, const runtime::Form& form, runtime::StringView formDefault = {}) {
    const runtime::FormDesign& design = form.Design();
    if (!design.tag.empty()) {
        const String caption(formDefault.empty() ? runtime::StringView(design.caption) : formDefault);
        texts.push_back({design.tag, caption, u"caption of " + design.name, {}});
    }
    for (const runtime::ControlDesign* const control : form.ControlDesigns()) {
        if (control->tag.empty()) continue;
        const bool isButton = control->kind == runtime::ControlKind::kButton;
        texts.push_back({control->tag, control->text, UseOf(*control, design.name), design.name,
                         isButton ? control->bounds.width : 0});
    }
}

/// Marks the texts that can become the main form's caption, because the published state contains the caption unquoted.
void MarkPublished(std::vector<CatalogueText>& texts) {
    const String tag = frmBackProcessMain().Design().tag;
    for (CatalogueText& text : texts) text.isPublished = text.id == services::kApplicationCaption.id || text.id == tag;
}

}  // namespace

std::vector<CatalogueText> TextCatalogue() {
    std::vector<CatalogueText> texts;
    for (const services::LocalText& text : services::CodeTexts()) {
        texts.push_back({String(text.id), String(text.defaultText), String(text.use), {}});
    }
    // Do not use the design's caption as the default, because the main form's load replaces that caption before it
    // looks up the tag.
    AppendTags(texts, frmBackProcessMain(), services::kApplicationCaption.defaultText);
    AppendTags(texts, dialogs::frmQMXMsgBox());
    AppendTags(texts, dialogs::Qmxquery());
    MarkPublished(texts);
    return texts;
}

}  // namespace host
