#!/usr/bin/env bash
# Runs a command with an X server of its own; exits with 77, which skips the test, where none is installed.
set -euo pipefail
for program in Xvfb xvfb-run xauth; do
    if ! command -v "$program" >/dev/null; then
        echo "skipped: $program is not installed"
        exit 77
    fi
done
unset WAYLAND_DISPLAY
export QT_QPA_PLATFORM=xcb
exec xvfb-run -a -s '-screen 0 640x480x24 -nolisten tcp' "$@"
