#include "platform/headless/headless.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <utility>

#include "platform/thread.h"

namespace platform::headless {

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
    std::int64_t passes = 0;
    for (const auto& view : views_) {
        const std::int64_t before = view->DisplayPasses;
        if (view->NeedsDisplay) view->Display();
        passes += view->DisplayPasses - before;
    }
    return passes;
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
        ServeOnce();
    }
    return true;
}

void Headless::ServeOnce() {
    TheMainQueue().WaitForWork(std::chrono::milliseconds(1));
    while (TheMainQueue().RunNext()) {
    }
    DisplayPass();
}

void Headless::Run(ApplicationClient& client) {
    ExpectMain(__func__);
    Client = &client;
    client.applicationWillFinishLaunching();
    client.applicationDidFinishLaunching();
    while (!terminated_) {
        TheMainQueue().WaitForWork(std::chrono::milliseconds(1));
        while (!terminated_ && TheMainQueue().RunNext()) {
        }
        DisplayPass();
    }
    End();
}

void Headless::Terminate() {
    terminated_ = true;
    PostToMain([] {});
}

void Headless::TerminateNow() {
    ExpectMain(__func__);
    End();
    Leave();
}

void Headless::End() {
    ApplicationClient* const client = Listener();
    ended_ = true;
    TheMainQueue().Close();
    if (client != nullptr) client->applicationWillTerminate();
}

// Who is told what happens, until the end.
ApplicationClient* Headless::Listener() const {
    return ended_ ? nullptr : Client;
}

void Headless::Serve(std::chrono::nanoseconds duration) {
    ExpectMain(__func__);
    if (RealTime) {
        const auto end = std::chrono::steady_clock::now() + duration;
        do {
            ServeOnce();
            if (terminated_) TerminateNow();
        } while (std::chrono::steady_clock::now() < end);
        return;
    }
    Sleep(duration);
    while (TheMainQueue().RunNext()) {
    }
}

Window* Headless::ActiveWindow() {
    ExpectMain(__func__);
    return active_;
}

HeadlessWindow& Headless::AddWindow(double contentWidth, double contentHeight) {
    windows_.push_back(std::make_unique<HeadlessWindow>(*this, contentWidth, contentHeight));
    Order.push_back(windows_.back().get());
    return *windows_.back();
}

void Headless::BringToFront(HeadlessWindow& window, bool key) {
    const auto place = std::find(Order.begin(), Order.end(), &window);
    std::rotate(place, place + 1, Order.end());
    if (key) inFront_ = true;
    if (key || (active_ == nullptr && inFront_)) Activate(&window);
}

void Headless::ActivateOther() {
    inFront_ = false;
    Activate(nullptr);
}

void Headless::Activate(Window* window) {
    const bool before = active_ != nullptr;
    active_ = window;
    const bool now = active_ != nullptr;
    if (now == before || Listener() == nullptr) return;
    now ? Client->applicationDidBecomeActive() : Client->applicationWillResignActive();
}

void Headless::WindowHidden(HeadlessWindow& window) {
    if (active_ == &window) {
        const auto next = std::find_if(Order.rbegin(), Order.rend(),
                                       [](const HeadlessWindow* w) { return w->IsVisible(); });
        Activate(next == Order.rend() ? nullptr : *next);
    }
    if (!AnythingVisible()) PostToMain([this] { TellThatNothingIsVisible(); });
}

bool Headless::AnythingVisible() const {
    return std::any_of(Order.begin(), Order.end(),
                       [](const HeadlessWindow* w) { return w->IsVisible(); });
}

void Headless::TellThatNothingIsVisible() {
    if (AnythingVisible() || Listener() == nullptr) return;
    if (Client->applicationShouldTerminateAfterLastWindowClosed()) {
        Terminate();
    } else {
        Client->lastWindowDidHide();
    }
}

void Headless::WindowResized(HeadlessWindow& window) {
    if (Listener() != nullptr) Client->windowDidResize(window);
}

GraphicWindowParts Headless::MakeGraphicWindow(ViewClient& client) {
    ExpectMain(__func__);
    HeadlessWindow& window = AddWindow(640, 480);
    window.Zooms = true;
    views_.push_back(std::make_unique<HeadlessView>(window, client));
    return {&window, views_.back().get()};
}

TextWindowParts Headless::MakeTextWindow(std::string_view title, double width, double height,
                                         const TextLayout& layout) {
    ExpectMain(__func__);
    HeadlessWindow& window = AddWindow(width, height);
    window.SetTitle(title);
    window.Text = std::make_unique<HeadlessTextView>();
    window.Scroll = std::make_unique<HeadlessBox<ScrollView>>(TextPlace(layout, width, height));
    if (layout.RulerHeight > 0) {
        window.Columns = std::make_unique<HeadlessBox<Ruler>>(RulerPlace(layout, width, height));
    }
    return {&window, window.Scroll.get(), window.Text.get(), window.Columns.get()};
}

Window* Headless::MakeFormWindow(std::string_view title, std::vector<FormRow> rows) {
    ExpectMain(__func__);
    HeadlessWindow& window = AddWindow(400, 300);
    window.SetTitle(title);
    window.Rows = std::move(rows);
    return &window;
}

std::vector<std::string> Headless::RunOpenPanel(const OpenPanel& panel) {
    ExpectMain(__func__);
    OpenPanelsRun.push_back(panel);
    if (OnPanel) OnPanel();
    if (OpenAnswers.empty()) return {};
    std::vector<std::string> answer = std::move(OpenAnswers.front());
    OpenAnswers.erase(OpenAnswers.begin());
    return answer;
}

std::optional<std::string> Headless::RunSavePanel(const SavePanel& panel) {
    ExpectMain(__func__);
    SavePanelsRun.push_back(panel);
    if (OnPanel) OnPanel();
    if (SaveAnswers.empty()) return std::nullopt;
    std::optional<std::string> answer = std::move(SaveAnswers.front());
    SaveAnswers.erase(SaveAnswers.begin());
    return answer;
}

std::int64_t Headless::RunAlert(const Alert& alert) {
    ExpectMain(__func__);
    AlertsRun.push_back(alert);
    if (AlertAnswers.empty()) return std::ssize(alert.Buttons) - 1;
    const std::int64_t answer = AlertAnswers.front();
    AlertAnswers.erase(AlertAnswers.begin());
    return answer;
}

std::optional<std::string> Headless::Text() {
    ExpectMain(__func__);
    return BoardText;
}

void Headless::Clear() {
    ExpectMain(__func__);
    BoardText.reset();
    BoardPicture.reset();
}

void Headless::SetText(std::string_view text) {
    ExpectMain(__func__);
    Clear();
    BoardText = text;
}

void Headless::SetPicture(const Picture& picture) {
    ExpectMain(__func__);
    const std::int64_t pixels = picture.Width * picture.Height;
    if (pixels <= 0 || std::ssize(picture.Bytes) < 4 * pixels) return;
    Clear();
    BoardPicture = picture;
}

}  // namespace platform::headless
