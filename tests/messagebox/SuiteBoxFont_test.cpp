// Tests the user-interface font in the windows of the suite's message box.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

#include "kernel_api/Reader.h"
#include "kernel_api/Suite.h"
#include "kernel_api/builtin/TextFile.h"
#include "services/ProcessValues.h"
#include "tests/messagebox/SuiteBoxTest.h"
#include "tests/windows/WindowTexts.h"

namespace tests {
namespace {

using SuiteBoxFont = SuiteBoxTest;

TEST_F(SuiteBoxFont, ProcessFont_IsUsedByLabelAndButtons) {
    services::Values().uiFont = {u"Tahoma", 12, GREEK_CHARSET};
    const auto look = [](HWND box) {
        for (const HWND window : {LabelOf(box), ButtonOf(box, L"&Yes"), ButtonOf(box, L"Cancel")}) {
            const LOGFONTW font = FontDescriptionOf(window);
            EXPECT_STREQ(font.lfFaceName, L"Tahoma");
            EXPECT_EQ(font.lfHeight, -16);  // 12 points at 96 dots per inch
            EXPECT_EQ(font.lfCharSet, GREEK_CHARSET);
            EXPECT_EQ(font.lfWeight, FW_NORMAL);
        }
    };
    EXPECT_EQ(Ask(8, {Do(look), Keys({VK_ESCAPE})}), 2);
}

TEST_F(SuiteBoxFont, NoProcessFont_DesignFontIsUsed) {
    const auto look = [](HWND box) {
        const LOGFONTW font = FontDescriptionOf(ButtonOf(box, L"&Yes"));
        EXPECT_STREQ(font.lfFaceName, L"MS Sans Serif");
        EXPECT_EQ(font.lfHeight, -11);
    };
    EXPECT_EQ(Ask(8, {Do(look), Keys({VK_ESCAPE})}), 2);
}

/// A reader with the texts of one language.
class OneLanguage : public kernel_api::Reader {
 public:
    explicit OneLanguage(std::string_view bytes) : texts_(bytes) { kernel_api::CurrentSuite().reader = this; }
    ~OneLanguage() override { kernel_api::CurrentSuite().reader = nullptr; }

    void NormaliseFolder(runtime::String&) override {}
    runtime::String GetSetting(runtime::StringView, runtime::StringView, runtime::StringView value) override {
        return runtime::String(value);
    }
    runtime::String GetText(runtime::StringView defaultText, runtime::StringView id) override {
        return runtime::String(texts_.Find(id).value_or(defaultText));
    }
    runtime::String TextAt(kernel_api::TextPointer) override { return {}; }

 private:
    kernel_api::builtin::TextFile texts_;
};

std::string ExampleLanguage(const std::string& name) {
    std::ifstream file(K4T_LANGUAGES "/" + name + "/K4TBackProcess.txt", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Returns the width of a button's caption in the button's font. An '&' marks an access key and takes no space.
int CaptionWidth(HWND button) {
    const HDC context = GetDC(button);
    const HGDIOBJ former = SelectObject(context, FontOf(button));
    RECT drawn{};
    const runtime::String caption = TextOf(button);
    DrawTextW(context, runtime::win32::Wide(caption.data()), static_cast<int>(caption.size()), &drawn,
              DT_CALCRECT | DT_SINGLELINE);
    SelectObject(context, former);
    ReleaseDC(button, context);
    return static_cast<int>(drawn.right);
}

/// Fails the test if a button has no caption, if the caption does not fit inside the button's frame, or if the caption
/// shows no access key.
void ExpectWholeCaptions(HWND box) {
    int buttons = 0;
    for (HWND button = nullptr; (button = FindWindowExW(box, button, L"BUTTON", nullptr)) != nullptr; ++buttons) {
        RECT client{};
        GetClientRect(button, &client);
        const int frame = 2 * GetSystemMetrics(SM_CXEDGE);
        const std::string caption = runtime::ToUtf8(TextOf(button));
        EXPECT_GT(CaptionWidth(button), 0);
        EXPECT_LE(CaptionWidth(button), client.right - frame) << caption;
        EXPECT_EQ(SendMessageW(button, WM_QUERYUISTATE, 0, 0) & UISF_HIDEACCEL, 0) << caption;
    }
    EXPECT_EQ(buttons, 4);
}

TEST_F(SuiteBoxFont, TranslatedCaptions_FitTheButtons) {
    struct {
        const char* name;
        services::UiFont font;
        const wchar_t* yes;
    } const languages[] = {
        {"German", {u"MS Sans Serif", 8, ANSI_CHARSET}, L"&Ja"},
        {"French", {u"MS Sans Serif", 8, ANSI_CHARSET}, L"&Oui"},
        {"Japanese", {u"\uFF2D\uFF33 \uFF30\u30B4\u30B7\u30C3\u30AF", 9, SHIFTJIS_CHARSET}, L"\u306F\u3044(&Y)"},
    };
    for (const auto& language : languages) {
        SCOPED_TRACE(language.name);
        const OneLanguage spoken(ExampleLanguage(language.name));
        services::Values().uiFont = language.font;
        const auto look = [&](HWND box) {
            EXPECT_NE(ButtonOf(box, language.yes), nullptr);
            ExpectWholeCaptions(box);
        };
        EXPECT_EQ(Ask(8, {Do(look), Keys({VK_ESCAPE})}), 2);
    }
}

}  // namespace
}  // namespace tests
