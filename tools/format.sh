#!/usr/bin/env bash
# Formats all C++ sources in place; with --check changes nothing and fails when one is not formatted.
set -euo pipefail
cd "$(dirname "$0")/.."
mode=(-i)
if [ "${1:-}" = --check ]; then
    mode=(--dry-run --Werror)
fi
find apps bench examples include platform profiles session support tests widgets wizard \
    \( -name '*.cpp' -o -name '*.h' \) -print0 | xargs -0 -r clang-format "${mode[@]}"
