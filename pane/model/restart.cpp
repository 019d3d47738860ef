#include "pane/model/restart.h"

#include "platform/foundation.h"

extern "C" {
int posix_spawn(int* process, const char* path, const void* file_actions, const void* attributes,
                char* const arguments[], char* const environment[]);
void* dlopen(const char*, int);
}

namespace {

using namespace objc::literals;

struct SBSRelaunchAction : objc::Interface<SBSRelaunchAction, "SBSRelaunchAction", NSObject> {
    static SBSRelaunchAction* action(NSString* reason, NSUInteger options, NSURL* opened_after) {
        return class_send<"actionWithReason:options:targetURL:", SBSRelaunchAction*>(reason, options,
                                                                                     opened_after);
    }
    static constexpr NSUInteger restart_render_server = 1, fade_to_black = 4;
};

struct FBSSystemService : objc::Interface<FBSSystemService, "FBSSystemService", NSObject> {
    static FBSSystemService* sharedService() { return class_send<"sharedService", FBSSystemService*>(); }
    void sendActions(NSSet* actions, id result) { send<"sendActions:withResult:">(actions, result); }
};

/// The process is not waited for: the answer to its success is the end of this one.
bool start(const char* path, char* const arguments[]) {
    if (!NSFileManager::defaultManager()->fileExistsAtPath(NSString::stringWithUTF8String(path)))
        return false;
    int process = 0;
    char* const no_environment[] = {nullptr};
    return posix_spawn(&process, path, nullptr, nullptr, arguments, no_environment) == 0;
}

bool ask_the_system() {
    constexpr int lazily = 1;
    dlopen("/System/Library/PrivateFrameworks/SpringBoardServices.framework/SpringBoardServices", lazily);
    dlopen("/System/Library/PrivateFrameworks/FrontBoardServices.framework/FrontBoardServices", lazily);
    if (!SBSRelaunchAction::class_object() || !FBSSystemService::class_object()) return false;
    SBSRelaunchAction* action = SBSRelaunchAction::action(
        "RestartRenderServer"_ns, SBSRelaunchAction::restart_render_server | SBSRelaunchAction::fade_to_black,
        nullptr);
    FBSSystemService* service = FBSSystemService::sharedService();
    if (!action || !service) return false;
    service->sendActions(NSSet::setWithObject(action), nullptr);
    return true;
}

}  // namespace

namespace pane {

bool restart_springboard() {
    char sbreload[] = "sbreload", killall[] = "killall", at_once[] = "-9", springboard[] = "SpringBoard";
    char* const reload[] = {sbreload, nullptr};
    char* const kill[] = {killall, at_once, springboard, nullptr};
    return start("/usr/bin/sbreload", reload) || start("/usr/bin/killall", kill) || ask_the_system();
}

}  // namespace pane
