#include "runtime/headless/ScriptedFonts.h"

#include "runtime/Error.h"

namespace runtime::headless {
namespace {
constexpr std::size_t kFaceBuffer = 80;
}

bool ScriptedFonts::IsInstalled(StringView face) {
    log.push_back("installed " + ToUtf8(face));
    return installed.contains(String(face));
}

NativeHandle ScriptedFonts::MakeIconTitleFont() {
    log.emplace_back("make icon title");
    iconTitleFontExists_ = describesIconTitles;
    return describesIconTitles ? kIconTitleFont : 0;
}

NativeHandle ScriptedFonts::StockGuiFont() {
    log.emplace_back("stock");
    return kStockFont;
}

NativeHandle ScriptedFonts::Select(NativeHandle context, NativeHandle font) {
    log.push_back("select " + std::to_string(font) + " in " + std::to_string(context));
    if (context == 0 || !Exists(font)) return 0;
    NativeHandle& selected = selected_.try_emplace(context, kFirstFont).first->second;
    const NativeHandle before = selected;
    selected = font;
    return before;
}

String ScriptedFonts::FaceName(NativeHandle context) {
    log.push_back("face of " + std::to_string(context));
    if (failsFaceName) throw Error(kOutOfMemory);
    const auto found = selected_.find(context);
    if (found == selected_.end()) return String(kFaceBuffer, u' ');
    return found->second == kIconTitleFont ? iconTitleFace : stockFace;
}

void ScriptedFonts::ReleaseContext(NativeHandle window, NativeHandle context) {
    log.push_back("release " + std::to_string(context) + " of " + std::to_string(window));
    selected_.erase(context);
}

void ScriptedFonts::Delete(NativeHandle font) {
    log.push_back("delete " + std::to_string(font));
    if (font == kIconTitleFont) iconTitleFontExists_ = false;
}

bool ScriptedFonts::Exists(NativeHandle font) const {
    return font == kFirstFont || font == kStockFont || (font == kIconTitleFont && iconTitleFontExists_);
}

}  // namespace runtime::headless
