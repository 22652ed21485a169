#include "platform/headless/headless.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <thread>
#include <utility>

namespace platform::headless {

// A sound that has ended as soon as it was played, unless sounds are to last.
class Headless::NamedSound final : public Sound {
  public:
    NamedSound(Headless& desktop, std::string name) : desktop_(desktop), name_(std::move(name)) {}

    bool IsPlaying() override { return played_ && desktop_.SoundsLast; }
    void Play() override {
        played_ = true;
        desktop_.Note(name_);
    }

  private:
    Headless& desktop_;
    std::string name_;
    std::atomic<bool> played_ = false;
};

Headless::Headless() {
    TheMainQueue().Open([] {});
    RestartThreadNumbers();
    SetBackgroundStarter([this](auto task) { return StartBackground(std::move(task)); });
    Install({.Application = this,
             .WindowMaker = this,
             .MenuBar = &Menu,
             .Panels = this,
             .Pasteboard = this,
             .Sounds = this,
             .Clock = this,
             .Randomness = this,
             .Output = this,
             .Resources = this});
}

Headless::~Headless() {
    SetBackgroundStarter({});
}

void Headless::Choose(std::string_view menu, std::string_view item) {
    platform::Menu* const found = Menu.Find(menu);
    if (found == nullptr) return;
    for (std::int64_t i = 0; i < found->NumberOfItems(); ++i) {
        MenuItem* const candidate = found->ItemAt(i);
        if (candidate->Title != item || !candidate->Chosen || !IsEnabled(*candidate)) continue;
        return candidate->Chosen(*candidate);
    }
}

std::int64_t Headless::DisplayPass() {
    std::int64_t marked = 0;
    for (const auto& view : views_) {
        if (!view->NeedsDisplay) continue;
        ++marked;
        view->Display();
    }
    return marked;
}

std::string Headless::Printed() {
    const std::lock_guard lock(mutex_);
    return printed_;
}

void Headless::ClearPrinted() {
    const std::lock_guard lock(mutex_);
    printed_.clear();
}

std::vector<std::string> Headless::Played() {
    const std::lock_guard lock(mutex_);
    return played_;
}

void Headless::ClearPlayed() {
    const std::lock_guard lock(mutex_);
    played_.clear();
}

std::string Headless::StartBackground(std::function<void()> task) {
    if (!HoldBackground) return StartThread(std::move(task), 0);
    const std::lock_guard lock(mutex_);
    held_.push_back(std::move(task));
    return {};
}

bool Headless::RunBackgroundTask() {
    std::function<void()> task;
    {
        const std::lock_guard lock(mutex_);
        if (held_.empty()) return false;
        task = std::move(held_.front());
        held_.erase(held_.begin());
    }
    task();
    return true;
}

bool Headless::ServeUntil(const std::function<bool()>& done, std::chrono::seconds limit) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!done()) {
        if (std::chrono::steady_clock::now() > end) return false;
        TheMainQueue().WaitForWork(std::chrono::milliseconds(1));
        while (TheMainQueue().RunNext()) {
        }
        DisplayPass();
    }
    return true;
}

void Headless::Run(ApplicationClient& client) {
    Client = &client;
    client.applicationWillFinishLaunching();
    client.applicationDidFinishLaunching();
    while (!terminated_) {
        TheMainQueue().WaitForWork(std::chrono::milliseconds(1));
        while (!terminated_ && TheMainQueue().RunNext()) {
        }
        DisplayPass();
    }
    TheMainQueue().Close();
    client.applicationWillTerminate();
}

void Headless::Terminate() {
    terminated_ = true;
    PostToMain([] {});
}

void Headless::TerminateNow() {
    TheMainQueue().Close();
    if (Client != nullptr) Client->applicationWillTerminate();
    Leave();
}

void Headless::Serve(std::chrono::nanoseconds duration) {
    Sleep(duration);
    while (TheMainQueue().RunNext()) {
    }
}

HeadlessWindow& Headless::AddWindow(double contentWidth, double contentHeight) {
    windows_.push_back(std::make_unique<HeadlessWindow>(*this, contentWidth, contentHeight));
    Order.push_back(windows_.back().get());
    return *windows_.back();
}

void Headless::BringToFront(HeadlessWindow& window, bool key) {
    const auto place = std::find(Order.begin(), Order.end(), &window);
    std::rotate(place, place + 1, Order.end());
    if (key || active_ == nullptr) active_ = &window;
}

void Headless::WindowHidden(HeadlessWindow& window) {
    if (active_ != &window) return;
    const auto next = std::find_if(Order.rbegin(), Order.rend(),
                                   [](const HeadlessWindow* w) { return w->IsVisible(); });
    active_ = next == Order.rend() ? nullptr : *next;
    if (active_ != nullptr || Client == nullptr) return;
    PostToMain([this] {
        const bool anyVisible = std::any_of(Order.begin(), Order.end(),
                                            [](const HeadlessWindow* w) { return w->IsVisible(); });
        if (!anyVisible) Client->lastWindowDidHide();
    });
}

void Headless::WindowResized(HeadlessWindow& window) {
    if (Client != nullptr) Client->windowDidResize(window);
}

GraphicWindowParts Headless::MakeGraphicWindow(ViewClient& client) {
    HeadlessWindow& window = AddWindow(640, 480);
    window.Zooms = true;
    views_.push_back(std::make_unique<HeadlessView>(window, client));
    return {&window, views_.back().get()};
}

TextWindowParts Headless::MakeTextWindow(std::string_view title, double width, double height,
                                         bool ruler) {
    HeadlessWindow& window = AddWindow(width, height);
    window.SetTitle(title);
    texts_.push_back(std::make_unique<HeadlessTextView>());
    const Rect scroll =
        ruler ? Rect{20, 20, width - 40, height - 40 - 15} : Rect{10, 10, width - 20, height - 20};
    scrolls_.push_back(std::make_unique<HeadlessBox<ScrollView>>(scroll));
    TextWindowParts parts{&window, scrolls_.back().get(), texts_.back().get(), nullptr};
    if (ruler) {
        rulers_.push_back(std::make_unique<HeadlessBox<Ruler>>(
            Rect{24, scroll.Y + scroll.Height, width - 48, 19}));
        parts.Columns = rulers_.back().get();
    }
    return parts;
}

Window* Headless::MakeFormWindow(std::string_view title, std::vector<FormRow> rows) {
    HeadlessWindow& window = AddWindow(400, 300);
    window.SetTitle(title);
    window.Rows = std::move(rows);
    return &window;
}

std::vector<std::string> Headless::RunOpenPanel(const OpenPanel& panel) {
    OpenPanelsRun.push_back(panel);
    if (OnPanel) OnPanel();
    if (OpenAnswers.empty()) return {};
    std::vector<std::string> answer = std::move(OpenAnswers.front());
    OpenAnswers.erase(OpenAnswers.begin());
    return answer;
}

std::optional<std::string> Headless::RunSavePanel(const SavePanel& panel) {
    SavePanelsRun.push_back(panel);
    if (OnPanel) OnPanel();
    if (SaveAnswers.empty()) return std::nullopt;
    std::optional<std::string> answer = std::move(SaveAnswers.front());
    SaveAnswers.erase(SaveAnswers.begin());
    return answer;
}

std::int64_t Headless::RunAlert(const Alert& alert) {
    AlertsRun.push_back(alert);
    if (AlertAnswers.empty()) return std::ssize(alert.Buttons) - 1;
    const std::int64_t answer = AlertAnswers.front();
    AlertAnswers.erase(AlertAnswers.begin());
    return answer;
}

void Headless::Clear() {
    BoardText.reset();
    BoardPicture.reset();
}

Sound* Headless::Named(const std::string& name) {
    const std::lock_guard lock(mutex_);
    const auto known = SoundFiles.find(name);
    if (known == SoundFiles.end() || !known->second) return nullptr;
    auto& sound = sounds_[name];
    if (sound == nullptr) sound = std::make_unique<NamedSound>(*this, name);
    return sound.get();
}

void Headless::Beep() {
    Note("beep");
}

void Headless::Note(std::string sound) {
    if (!KeepPlayed) return;
    const std::lock_guard lock(mutex_);
    played_.push_back(std::move(sound));
}

double Headless::Now() {
    const std::chrono::nanoseconds passed =
        RealTime ? std::chrono::steady_clock::now() - madeAt_ : std::chrono::nanoseconds(passed_);
    return StartTime + std::chrono::duration<double>(passed).count();
}

void Headless::Sleep(std::chrono::nanoseconds duration) {
    if (OnSleep) OnSleep();
    passed_ += duration.count();
    if (RealTime) {
        std::this_thread::sleep_for(duration);
    } else {
        std::this_thread::yield();
    }
}

std::uint32_t Headless::Next() {
    const std::lock_guard lock(mutex_);
    if (NextRandom) return NextRandom();
    random_ = random_ * 1'664'525U + 1'013'904'223U;
    return random_ >> 8U;
}

void Headless::Write(std::string_view text) {
    const std::lock_guard lock(mutex_);
    if (KeepOutput) printed_ += text;
    if (!EchoOutput) return;
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fflush(stdout);
}

FileContent Headless::ReadFile(const std::string& path) {
    const std::string prefix = ResourceFolder + "/";
    if (path.starts_with(prefix)) {
        const auto file = Files.find(path.substr(prefix.size()));
        if (file != Files.end()) return {file->second, {}};
    }
    return ReadFileFromDisk(path);
}

HeadlessWindow::HeadlessWindow(Headless& desktop, double contentWidth, double contentHeight)
    : desktop_(desktop), frame_{0, 0, contentWidth, contentHeight + desktop.AboveContent} {}

Rect HeadlessWindow::ScreenFrame() const {
    return desktop_.Screen;
}

void HeadlessWindow::SetFrame(const Rect& frame) {
    const bool resized = frame.Width != frame_.Width || frame.Height != frame_.Height;
    frame_ = frame;
    if (resized) desktop_.WindowResized(*this);
}

void HeadlessWindow::Center() {
    frame_.X = (desktop_.Screen.Width - frame_.Width) / 2;
    frame_.Y = (desktop_.Screen.Height - frame_.Height) / 2;
}

void HeadlessWindow::OrderFront() {
    visible_ = true;
    desktop_.BringToFront(*this, false);
}

void HeadlessWindow::MakeKeyAndOrderFront() {
    visible_ = true;
    desktop_.BringToFront(*this, true);
}

void HeadlessWindow::OrderOut() {
    if (!std::exchange(visible_, false)) return;
    desktop_.WindowHidden(*this);
}

double HeadlessWindow::Zoom() const {
    return Zooms ? std::min(zoom_, LargestZoom()) : 1;
}

double HeadlessWindow::LargestZoom() const {
    if (!Zooms) return 1;
    const double above = desktop_.AboveContent;
    return std::min(desktop_.Screen.Width / frame_.Width,
                    (desktop_.Screen.Height - above) / (frame_.Height - above));
}

void HeadlessWindow::SetZoom(double zoom) {
    if (Zooms && zoom > 0) zoom_ = zoom;
}

void HeadlessWindow::ClickCloseBox() {
    if (desktop_.Client == nullptr || !desktop_.Client->windowShouldClose(*this)) return;
    desktop_.Client->windowWillClose(*this);
    OrderOut();
}

HeadlessView::HeadlessView(HeadlessWindow& window, ViewClient& client)
    : Client(client), window_(window), frame_{0, 0, 640, 480} {
    client.awakeFromNib();
}

void HeadlessView::Display() {
    NeedsDisplay = false;
    if (!window_.IsVisible()) return;
    ++DisplayPasses;
    buffer_.Order = Order;
    if (Client.wantsUpdateLayer()) {
        Client.updateLayer(*this);
    } else {
        Client.drawRect({0, 0, frame_.Width, frame_.Height}, *this);
    }
}

void HeadlessView::SetFrameSize(double width, double height) {
    frame_.Width = width;
    frame_.Height = height;
}

void HeadlessView::SetFrameOrigin(double x, double y) {
    frame_.X = x;
    frame_.Y = y;
}

void HeadlessView::Press(const KeyPress& press) {
    if (!Client.acceptsFirstResponder()) return;
    Client.keyDown(press);
    Client.keyUp();
}

void HeadlessView::MouseDown(const MousePress& press, bool rightButton) {
    rightButton ? Client.rightMouseDown(press) : Client.mouseDown(press);
}

void HeadlessView::MouseUp(bool rightButton) {
    rightButton ? Client.rightMouseUp() : Client.mouseUp();
}

void HeadlessTextView::SetFont(std::string_view family, double points) {
    FontFamily = family;
    FontPoints = points;
}

}  // namespace platform::headless
