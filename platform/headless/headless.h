#pragma once

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/application.h"
#include "platform/geometry.h"
#include "platform/input.h"
#include "platform/main_queue.h"
#include "platform/menu.h"
#include "platform/panels.h"
#include "platform/pasteboard.h"
#include "platform/picture.h"
#include "platform/platform.h"
#include "platform/sound.h"
#include "platform/system.h"
#include "platform/text_layout.h"
#include "platform/text_store.h"
#include "platform/view.h"
#include "platform/window.h"

// A desktop in memory: windows have frames and an order, the pasteboard keeps text, sounds are
// noted, a display pass happens when it is asked for, and time stands still unless somebody sleeps.
// For tests, benchmarks and programs without a screen. The thread that makes a Headless is its main
// thread; the members are for that thread unless said otherwise, and what overrides the seam sees to
// it.
//
// headless.cpp: the application, panels and pasteboard; headless_windows.cpp: windows and views;
// headless_machine.cpp: what any thread may call.

namespace platform::headless {

class Headless;

/// The text of a text view, to be set and read as a string.
class HeadlessText : public TextStore {
  public:
    HeadlessText& operator=(std::string_view text) {
        Set(std::string(text));
        return *this;
    }
    operator std::string_view() const { return Text(); }
    friend bool operator==(const HeadlessText& text, std::string_view other) {
        return text.Text() == other;
    }

    void clear() { Set({}); }
    [[nodiscard]] std::size_t size() const { return Text().size(); }
    [[nodiscard]] char operator[](std::size_t at) const { return Text()[at]; }
    [[nodiscard]] bool ends_with(std::string_view end) const { return Text().ends_with(end); }
    [[nodiscard]] std::size_t find(auto what, std::size_t from = 0) const {
        return Text().find(what, from);
    }
    [[nodiscard]] std::string_view substr(std::size_t from, std::size_t count) const {
        return Text().substr(from, count);
    }
};

class HeadlessTextView final : public TextView {
  public:
    [[nodiscard]] std::string Text() const override;
    void SetText(std::string text) override;
    void AppendText(std::string_view text) override;
    void SetLineLimit(std::int64_t lines) override;
    void SetAutomaticSubstitutions(bool on) override;
    void SetFont(std::string_view family, double points) override;
    void SetNeedsDisplay() override;

    HeadlessText Content;
    bool AutomaticSubstitutions = true;
    std::string FontFamily;
    double FontPoints = 0;
    std::int64_t DisplayRequests = 0;
};

/// A scroll view or a ruler: something with a frame.
template <typename Base>
class HeadlessBox final : public Base {
  public:
    explicit HeadlessBox(const Rect& frame) : frame_(frame) {}
    [[nodiscard]] Rect Frame() const override {
        ExpectMain(__func__);
        return frame_;
    }
    void SetFrame(const Rect& frame) override {
        ExpectMain(__func__);
        frame_ = frame;
    }

  private:
    Rect frame_;
};

/// A window, in the same terms as platform::Window.
class HeadlessWindow final : public platform::Window {
  public:
    HeadlessWindow(Headless& desktop, double contentWidth, double contentHeight);

    [[nodiscard]] Rect Frame() const override;
    [[nodiscard]] Rect ScreenFrame() const override;
    void SetFrame(const Rect& frame) override;
    void Center() override;
    [[nodiscard]] bool IsVisible() const override;
    void OrderFront() override;
    void MakeKeyAndOrderFront() override;
    void OrderOut() override;
    void SetTitle(std::string_view title) override;
    void SetStyleMask(std::int64_t mask) override;
    void SetBackgroundColor(Color color) override;
    [[nodiscard]] double Zoom() const override;
    [[nodiscard]] double LargestZoom() const override;
    void SetZoom(double zoom) override;

    /// Clicks the close box: the delegate is asked, and a window that it lets go is hidden.
    void ClickCloseBox();

    std::string Title;
    std::int64_t StyleMask = kTitledClosableMiniaturizable;
    Color Background;
    std::vector<FormRow> Rows;  // of a form window
    bool Zooms = false;         // a graphic window
    // Of a text window, nullptr otherwise.
    std::unique_ptr<HeadlessTextView> Text;
    std::unique_ptr<HeadlessBox<ScrollView>> Scroll;
    std::unique_ptr<HeadlessBox<Ruler>> Columns;

  private:
    [[nodiscard]] double Above() const;
    void Show(bool key);
    void Change(const Rect& frame, std::int64_t mask);
    void Follow(double wider, double higher);

    Headless& desktop_;
    Rect frame_;
    double zoom_ = 1;
    bool visible_ = false;
    bool everPlaced_ = false;
};

/// A view and the person in front of it.
class HeadlessView final : public View, private Canvas {
  public:
    HeadlessView(HeadlessWindow& window, ViewClient& client);

    void SetNeedsDisplay() override;
    void Display() override;
    [[nodiscard]] platform::Window* HostWindow() override;
    [[nodiscard]] Rect Frame() const override;
    void SetFrameSize(double width, double height) override;
    void SetFrameOrigin(double x, double y) override;

    void Press(const KeyPress& press);  // presses and releases a key
    void MouseDown(const MousePress& press, bool rightButton);
    void MouseUp(bool rightButton);
    void MovePointer(const MousePress& pointer);  // to there, with these buttons held
    void LeavePointer();                          // out of the view

    bool NeedsDisplay = true;
    bool Attached = true;                              // false: the view stands in no window
    std::optional<Picture> Shown;                      // what the view shows
    std::int64_t DisplayPasses = 0;                    // that this view took part in
    PixelOrder Order = PixelOrder::AlphaRedGreenBlue;  // that the screen wants
    ViewClient& Client;

  private:
    Picture& Buffer() override { return buffer_; }
    void Show(const Rows& /*changed*/) override { Shown = buffer_; }

    MousePress pointer_;
    HeadlessWindow& window_;
    Rect frame_;
    Picture buffer_;
    bool asking_ = false;  // the client is being asked
};

/// The whole desktop: installs itself as the platform when it is made. Made once per test; must
/// outlive every thread that uses it.
class Headless final : public Application,
                       public WindowMaker,
                       public Panels,
                       public Pasteboard,
                       public Sounds,
                       public Clock,
                       public Randomness,
                       public Output,
                       public Resources {
  public:
    Headless();
    ~Headless() override;
    Headless(const Headless&) = delete;
    Headless& operator=(const Headless&) = delete;

    // The facts of this desktop; set them before they are asked for.
    Rect Screen{0, 0, 1920, 1080};
    double AboveContent = 28;  // height of the title bar with the menus
    std::string Bundle = "/Applications/Korvandi.app";
    std::string ResourceFolder;                              // for files that Files does not name
    std::vector<std::string> ResourcesSearched;              // in vain
    std::map<std::string, std::vector<std::uint8_t>> Files;  // resource files by name
    std::map<std::string, bool> SoundFiles;                  // by name; true: found
    std::function<std::uint32_t()> NextRandom;               // none: a fixed sequence
    bool RealTime = false;  // true: time passes by itself and sleep really waits
    /// Of the clock, seconds since 2001; not a whole number, since chance is made from its
    /// fractions.
    double StartTime = 800'000'000.0123;
    std::function<void()> OnSleep;         // called in every Sleep, on the sleeping thread
    bool EchoOutput = false;               // also to the process's standard output
    bool KeepOutput = true;                // for Printed
    bool KeepPlayed = true;                // for Played
    std::atomic<bool> SoundsLast = false;  // true: a sound that was played plays on

    // What the person does.
    MenuBar Menu;
    void Choose(std::string_view menu, std::string_view item);  // nothing for a disabled one
    std::vector<std::vector<std::string>> OpenAnswers;          // taken from the front
    std::vector<std::optional<std::string>> SaveAnswers;        // taken from the front
    std::function<void()> OnPanel;  // called while an open or save panel is shown
    std::vector<OpenPanel> OpenPanelsRun;
    std::vector<SavePanel> SavePanelsRun;
    std::vector<std::int64_t> AlertAnswers;  // taken from the front; none: the last button
    std::vector<Alert> AlertsRun;
    std::optional<std::string> BoardText;
    std::optional<Picture> BoardPicture;
    void ActivateOther();  // another application comes to the front

    /// A display pass of all marked views that are shown; returns how many there were.
    std::int64_t DisplayPass();

    // What the program did. Any thread.
    [[nodiscard]] std::string Printed();
    void ClearPrinted();
    [[nodiscard]] std::vector<std::string> Played();  // names of the sounds, "beep" for the beep
    void ClearPlayed();

    /// Background tasks wait in a list instead of running; RunBackgroundTask runs the oldest one.
    bool HoldBackground = true;
    bool RunBackgroundTask();

    /// Serves the main queue until `done` says so; false when that took more than `limit`.
    bool ServeUntil(const std::function<bool()>& done,
                    std::chrono::seconds limit = std::chrono::seconds(60));

    // The windows from back to front, hidden ones included.
    std::vector<HeadlessWindow*> Order;

    // platform::Application
    void Run(ApplicationClient& client) override;
    void Terminate() override;
    [[noreturn]] void TerminateNow() override;
    void Serve(std::chrono::nanoseconds duration) override;
    [[nodiscard]] Window* ActiveWindow() override;
    ApplicationClient* Client = nullptr;

    // platform::WindowMaker
    GraphicWindowParts MakeGraphicWindow(ViewClient& client) override;
    TextWindowParts MakeTextWindow(std::string_view title, double width, double height,
                                   const TextLayout& layout) override;
    Window* MakeFormWindow(std::string_view title, std::vector<FormRow> rows) override;

    // platform::Panels
    std::vector<std::string> RunOpenPanel(const OpenPanel& panel) override;
    std::optional<std::string> RunSavePanel(const SavePanel& panel) override;
    std::int64_t RunAlert(const Alert& alert) override;

    // platform::Pasteboard
    [[nodiscard]] std::optional<std::string> Text() override;
    void Clear() override;
    void SetText(std::string_view text) override;
    void SetPicture(const Picture& picture) override;

    // platform::Sounds
    Sound* Named(const std::string& name) override;
    void Beep() override;

    // platform::Clock, platform::Randomness, platform::Output
    [[nodiscard]] double Now() override;
    void Sleep(std::chrono::nanoseconds duration) override;
    [[nodiscard]] std::uint32_t Next() override;
    void Write(std::string_view text) override;

    // platform::Resources
    [[nodiscard]] std::string BundlePath() override { return Bundle; }
    [[nodiscard]] std::string Directory() override { return ResourceFolder; }
    [[nodiscard]] std::vector<std::string> SearchedInVain() override { return ResourcesSearched; }
    [[nodiscard]] FileContent ReadFile(const std::string& path) override;

  private:
    void Note(std::string sound);

    friend class HeadlessWindow;

    // A sound that has ended as soon as it was played, unless sounds are to last.
    class NamedSound final : public Sound {
      public:
        NamedSound(Headless& desktop, std::string name)
            : desktop_(desktop), name_(std::move(name)) {}

        bool IsPlaying() override;
        void Play() override;

      private:
        Headless& desktop_;
        std::string name_;
        std::atomic<bool> played_ = false;
    };

    HeadlessWindow& AddWindow(double contentWidth, double contentHeight);
    void BringToFront(HeadlessWindow& window, bool key);
    void Activate(Window* window);
    void WindowHidden(HeadlessWindow& window);
    void WindowResized(HeadlessWindow& window);
    [[nodiscard]] bool AnythingVisible() const;
    void TellThatNothingIsVisible();
    [[nodiscard]] ApplicationClient* Listener() const;
    void ServeOnce();
    void End();
    std::string StartBackground(std::function<void()> task);

    std::mutex mutex_;  // guards what other threads reach: output, sounds, tasks, random numbers
    std::string printed_;
    std::vector<std::string> played_;
    std::map<std::string, std::unique_ptr<NamedSound>> sounds_;
    std::vector<std::function<void()>> held_;
    std::uint32_t random_ = 1;

    std::atomic<std::int64_t> passed_ = 0;  // nanoseconds slept since the start
    std::chrono::steady_clock::time_point madeAt_ = std::chrono::steady_clock::now();
    std::atomic<bool> terminated_ = false;
    bool ended_ = false;
    bool inFront_ = true;  // among the applications
    Window* active_ = nullptr;

    std::vector<std::unique_ptr<HeadlessWindow>> windows_;
    std::vector<std::unique_ptr<HeadlessView>> views_;
};

}  // namespace platform::headless
