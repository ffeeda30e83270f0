#include "core/resume_next.h"

namespace talvora {

void ResumeNext::remember(const RuntimeError& error) {
    // A driver that knows no number for its failure must not make the failure look like success.
    number_ = error.number() == 0 ? -1 : error.number();
}

}  // namespace talvora
