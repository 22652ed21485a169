#pragma once

#include "platform/application.h"

namespace platform::desktop {

struct Desk;

/// The application's life: launch, event loop, end. The end comes from the program, a signal, the
/// desktop's session or a lost display; the process is left then and there, also from inside an
/// open panel, and where the main thread does not get to it, all the same.
class DesktopApplication : public Application {
  public:
    /// Catches the signals that ask a program to end. Before other threads run.
    explicit DesktopApplication(Desk& desk);

    void Run(ApplicationClient& client) override;
    void Terminate() override;
    [[noreturn]] void TerminateNow() override;
    void Serve(std::chrono::nanoseconds duration) override;
    [[nodiscard]] Window* ActiveWindow() override;

  private:
    void TellActivity(bool active);

    Desk& desk_;
    bool active_ = false;  // as the client was told
};

}  // namespace platform::desktop
