#include "tests/support/fixture.h"

namespace {

// Notes window n's VerticalBlank while its frame is built and shown.
class WatchingCanvas final : public platform::Canvas {
  public:
    explicit WatchingCanvas(std::uint8_t n) : n_(n) {}

    platform::Picture& Buffer() override {
        Seen += t_Windows[n_].VerticalBlank ? "build in blank" : "build";
        return picture_;
    }
    void Show(const platform::Rows& /*changed*/) override {
        Seen += t_Windows[n_].VerticalBlank ? ", show in blank" : ", show";
    }

    std::string Seen;

  private:
    std::uint8_t n_;
    platform::Picture picture_;
};

class Views : public WindowTest {
  protected:
    // What a display pass by the layer or the drawing path sees of VerticalBlank, and leaves.
    std::string Pass(std::uint8_t n, bool layer, bool blankBefore, bool blankAfter) {
        WatchingCanvas canvas(n);
        t_Windows[n].VerticalBlank = blankBefore;
        layer ? View(n).Client.updateLayer(canvas) : View(n).Client.drawRect({}, canvas);
        EXPECT_EQ(t_Windows[n].VerticalBlank, blankAfter);
        return canvas.Seen;
    }
};

}  // namespace

TEST_F(Views, OnlyWindow0ClearsVerticalBlankDuringItsFrame) {
    Open(3, 8, 8, 4);
    for (const bool layer : {true, false}) {
        EXPECT_EQ(Pass(0, layer, true, true), "build, show");
        EXPECT_EQ(Pass(3, layer, true, true), "build in blank, show in blank");
        EXPECT_EQ(Pass(3, layer, false, false), "build, show");
        t_Windows[0].Visible = false;
        EXPECT_EQ(Pass(0, layer, false, true), "build");
        t_ToolsReady = false;
        EXPECT_EQ(Pass(0, layer, false, false), "");
        t_ToolsReady = t_Windows[0].Visible = true;
    }
}

TEST_F(Views, UseTheirLayerForWindowsWithQuickUpdate) {
    platform::ViewClient& client = View(0).Client;
    EXPECT_TRUE(client.wantsUpdateLayer());
    for (toolkit::Shared<bool>* const needed :
         {&t_Windows[0].QuickUpdate, &t_Windows[0].Initialized, &t_ToolsReady}) {
        *needed = false;
        EXPECT_FALSE(client.wantsUpdateLayer());
        *needed = true;
    }
    EXPECT_TRUE(client.acceptsFirstResponder());
}
