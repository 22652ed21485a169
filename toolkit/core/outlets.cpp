#include "toolkit/core/outlets.h"

constinit toolkit::Shared<toolkit::Outlets*> t_AppDelegate;
constinit toolkit::Shared<std::int64_t> t_TitleBarHeight;
