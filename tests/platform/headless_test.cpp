#include "platform/headless/headless.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <thread>

namespace {

using platform::headless::Headless;

class Still final : public platform::ViewClient {
  public:
    void awakeFromNib() override {}
    bool wantsUpdateLayer() override { return true; }
    void updateLayer(platform::Canvas& /*canvas*/) override {}
    void drawRect(const platform::Rect& /*dirty*/, platform::Canvas& /*canvas*/) override {}
    bool acceptsFirstResponder() override { return false; }
    void keyDown(const platform::KeyPress& /*press*/) override {}
    void keyUp() override {}
    void flagsChanged(std::uint64_t /*modifierFlags*/) override {}
    void mouseDown(const platform::MousePress& /*press*/) override {}
    void rightMouseDown(const platform::MousePress& /*press*/) override {}
    void mouseUp() override {}
    void rightMouseUp() override {}
};

}  // namespace

TEST(HeadlessDeathTest, MainThreadMembersEndTheProcessOnOtherThreads) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    Headless desktop;
    Still client;
    const auto parts = desktop.MakeTextWindow("Text", 400, 300, {.RulerHeight = 19});
    platform::View& view = *desktop.MakeGraphicWindow(client).Area;
    struct Row {
        const char* Name;
        std::function<void()> Call;
    };
    const Row rows[] = {
        {"Serve", [&] { desktop.Serve({}); }},
        {"SetStyleMask", [&] { parts.Host->SetStyleMask(0); }},
        {"AppendText", [&] { parts.Text->AppendText("x"); }},
        {"SetFrame", [&] { parts.Columns->SetFrame({}); }},
        {"SetNeedsDisplay", [&] { view.SetNeedsDisplay(); }},
        {"RunAlert",
         [&] {
             static_cast<void>(desktop.RunAlert({"", "", {"x"}}));
         }},
        {"Clear", [&] { desktop.Clear(); }},
        {"MakeFormWindow", [&] { static_cast<void>(desktop.MakeFormWindow("", {})); }},
    };
    for (const Row& row : rows) {
        EXPECT_DEATH(
            std::thread(row.Call).join(),
            row.Name + std::string(": called on another thread than the main thread\\.\n"));
    }
}
