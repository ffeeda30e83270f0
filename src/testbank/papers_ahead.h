#pragma once

#include "platform/database/read_ahead.h"
#include "testbank/ctestingtype.h"

namespace talvora {

/// Reads ahead, from a server, what a list of all papers asks for: the papers of each subtype
/// (cExaminations::FindByTypeCode with all of them) and the number of each paper's questions. While the object stands
/// these come without a round trip each.
class PapersAhead {
 public:
    explicit PapersAhead(const cTestingTypes& types);

 private:
    ReadAhead papers_;
    ReadAhead counts_;
};

}  // namespace talvora
