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
"$work/cmake/consumer" | grep -Fx 'before init: -101 VORN_ERR_NOT_INITIALISED'

pc=$(dirname "$(find "$prefix" -name vornqtnapi.pc)")
export PKG_CONFIG_PATH=$pc
[ "$(pkg-config --modversion vornqtnapi)" = 1.0.0 ]
# Without Qt's words signals, slots and emit, too, which a program may want for itself.
# shellcheck disable=SC2046,SC2086
g++ -std=c++17 -fPIC -fsyntax-only -DQT_NO_KEYWORDS \
    "$source/main.cpp" $(pkg-config --cflags vornqtnapi)
# shellcheck disable=SC2046,SC2086
g++ -std=c++17 -fPIC $flags "$source/main.cpp" -o "$work/by-pkg-config" \
    $(pkg-config --cflags --libs vornqtnapi)
LD_LIBRARY_PATH=$(pkg-config --variable=libdir vornqtnapi) "$work/by-pkg-config" |
    grep -Fx 'before init: -101 VORN_ERR_NOT_INITIALISED'

[ -L "$(find "$prefix" -name libvornqtnapi.so.1)" ]
[ -x "$prefix/bin/vornctl" ]
[ -f "$prefix/share/bash-completion/completions/vornctl" ]
[ -f "$prefix/share/zsh/vendor-completions/_vornctl" ]
[ -f "$prefix/share/fish/vendor_completions.d/vornctl.fish" ]
[ -f "$prefix/share/man/man1/vornctl.1" ]
[ -s "$prefix/share/doc/vornqtnapi/network-json.md" ]
[ -x "$prefix/bin/vornphone" ]
find "$prefix" -name 'lib*.so.*' -type f -o -name libvornbody.so -o -path '*/bin/*' -type f >"$work/binaries"
[ "$(wc -l <"$work/binaries")" -ge 5 ]
xargs -d '\n' python3 -B "$source/../../rules/hardening.py" "$hardening" <"$work/binaries"
python3 -B "$source/../files_test.py" "$prefix"
find "$prefix/share/doc" -name '*.md' -print0 | xargs -0 python3 -B "$source/../../rules/links.py"

# What the README says to paste works as it stands, both ways.
readme=$source/../../../README.md snippet=$work/snippet
mkdir "$snippet"
block() { awk -v language="$1" '$0 == "```" { inside = 0 } inside; $0 == "```" language { inside = !done++ }'; }
block cpp <"$readme" >"$snippet/main.cpp"
block cmake <"$readme" >"$snippet/CMakeLists.txt"
"$cmake" -S "$snippet" -B "$snippet/build" -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_CXX_FLAGS="$flags" >/dev/null
"$cmake" --build "$snippet/build" >/dev/null
line=$(grep '^g++ .*pkg-config' "$readme")
(cd "$snippet" && eval "${line/g++/g++ $flags}")
export VORN_ROOT=$work/online
mkdir -p "$VORN_ROOT/etc"
cp "$source/../../../apps/example/network.json" "$VORN_ROOT/etc"
export LD_LIBRARY_PATH=$pc/..
for online in "$snippet/build/online" "$snippet/online"; do
    ! "$online" 2>"$work/without" || exit 1
    grep -Fx 'no link: no such profile (NAPI_ERR_NO_PROFILE)' "$work/without"
    "$prefix/bin/vornctl" profile create Internet apn=internet >/dev/null
    "$online" | grep -Fx 'link 0 is up on lo'
    rm -r "$VORN_ROOT/vornlocal"
done
unset LD_LIBRARY_PATH
# And the first steps, word for word, and the other commands of the documents.
python3 -B "$source/../documents_test.py" "$prefix" "$flags"
VORN_ROOT=$work/empty "$prefix/bin/vornctl" profile list >/dev/null
# The examples, as a developer copies them.
# shellcheck disable=SC2086
python3 -B "$source/../examples_test.py" "$prefix" "$work/examples" $flags
echo 'installed, found and linked'
