#!/usr/bin/env bash
# The house rules that a machine can check: one format, and one seam for everything that asks the user.
set -euo pipefail
cd "$(dirname "$0")/.."

git ls-files '*.h' '*.cpp' | xargs clang-format-14 --dry-run -Werror
if git grep -nE '\bQ(MessageBox|InputDialog|FileDialog|ErrorMessage)\b' -- 'src/*.h' 'src/*.cpp' 'setup/*.h' 'setup/*.cpp' ':!src/toolkit/forms/prompts*'; then
    echo 'Ask the user through toolkit/forms/prompts.h only.' >&2
    exit 1
fi
if git grep -nE '\b(TOD[O]|FIXM[E]|XX[X])\b' -- src setup tests bench; then
    echo 'Finish it or leave it out.' >&2
    exit 1
fi
