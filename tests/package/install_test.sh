#!/usr/bin/env bash
# install_test.sh CMAKE BUILD WORK HARDENING [FLAGS]: installs BUILD below WORK and builds the consumer against
# it. HARDENING is the mode of tests/rules/hardening.py.
set -euo pipefail
cmake=$1 build=$2 work=$3/installed hardening=$4 flags=${5:-}
source=$(cd "$(dirname "$0")" && pwd)/consumer

rm -rf "$work"
"$cmake" --install "$build" --prefix "$work/prefix" >/dev/null
# Moved after the installation: nothing may have its first place written into it.
mv "$work/prefix" "$work/moved"
prefix=$work/moved

"$cmake" -S "$source" -B "$work/cmake" -G Ninja -DCMAKE_PREFIX_PATH="$prefix" \
    -DCMAKE_CXX_FLAGS="$flags" >/dev/null
"$cmake" --build "$work/cmake" >/dev/null
"$work/cmake/consumer" | grep -Fx 'before init: -101'

pc=$(dirname "$(find "$prefix" -name vornqtnapi.pc)")
export PKG_CONFIG_PATH=$pc
[ "$(pkg-config --modversion vornqtnapi)" = 1.0.0 ]
# shellcheck disable=SC2046,SC2086
g++ -std=c++17 -fPIC $flags "$source/main.cpp" -o "$work/by-pkg-config" \
    $(pkg-config --cflags --libs vornqtnapi)
LD_LIBRARY_PATH=$(pkg-config --variable=libdir vornqtnapi) "$work/by-pkg-config" |
    grep -Fx 'before init: -101'

[ -L "$(find "$prefix" -name libvornqtnapi.so.1)" ]
[ -x "$prefix/bin/vornctl" ]
[ -f "$prefix/share/bash-completion/completions/vornctl" ]
[ -f "$prefix/share/man/man1/vornctl.1" ]
[ -s "$prefix/share/doc/vornqtnapi/network-json.md" ]
find "$prefix" -name 'lib*.so.*' -type f -o -path '*/bin/*' -type f >"$work/binaries"
[ "$(wc -l <"$work/binaries")" -ge 5 ]
xargs -d '\n' python3 -B "$source/../../rules/hardening.py" "$hardening" <"$work/binaries"
VORN_ROOT=$work/empty "$prefix/bin/vornctl" profile list >/dev/null
echo 'installed, found and linked'
