// Replaces the system's fonts in tests. A test sets the installed faces and decides which calls fail. A log contains
// the calls.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "runtime/FontsPort.h"

namespace runtime::headless {

class ScriptedFonts : public FontsPort {
 public:
    static constexpr NativeHandle kFirstFont = 0x50;  ///< initially selected into every context
    static constexpr NativeHandle kStockFont = 0x51;
    static constexpr NativeHandle kIconTitleFont = 0x52;

    bool IsInstalled(StringView face) override;
    NativeHandle MakeIconTitleFont() override;
    NativeHandle StockGuiFont() override;
    NativeHandle Select(NativeHandle context, NativeHandle font) override;
    String FaceName(NativeHandle context) override;
    void ReleaseContext(NativeHandle window, NativeHandle context) override;
    void Delete(NativeHandle font) override;

    std::set<String> installed{u"MS Sans Serif", u"Arial", u"System"};
    bool describesIconTitles = true;
    String iconTitleFace = u"Tahoma";
    String stockFace = u"MS Shell Dlg";
    /// If true, FaceName raises error 7.
    bool failsFaceName = false;
    /// The calls, in order. The entries have these forms: "installed Arial", "make icon title", "stock", "select 81 in
    /// 4097", "face of 4097", "release 4097 of 4096", "delete 82".
    std::vector<std::string> log;

 private:
    bool Exists(NativeHandle font) const;

    std::map<NativeHandle, NativeHandle> selected_;
    bool iconTitleFontExists_ = false;
};

}  // namespace runtime::headless
