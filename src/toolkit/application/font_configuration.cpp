#include "toolkit/application/font_configuration.h"

#ifdef TALVORA_FONTCONFIG

#include <fontconfig/fontconfig.h>
#include <pthread.h>
#include <sched.h>

namespace talvora {

namespace {

// Refused, the reading goes on as it was.
void schedule(std::thread& thread, int policy) {
    const sched_param none{};
    pthread_setschedparam(thread.native_handle(), policy, &none);
}

}  // namespace

FontConfiguration::FontConfiguration() : reading_(FcInit) {
    // While Qt connects to the display, the process of the display needs the other processor more.
    schedule(reading_, SCHED_IDLE);
}

void FontConfiguration::finish() {
    if (reading_.joinable()) {
        schedule(reading_, SCHED_OTHER);
        reading_.join();
    }
}

}  // namespace talvora

#else

namespace talvora {

FontConfiguration::FontConfiguration() = default;

void FontConfiguration::finish() {}

}  // namespace talvora

#endif
