#!/usr/bin/env bash
# idle_test.sh IDLE_LINK VORNCTL WORK: an application with an established link makes no system call while
# nothing happens.
set -euo pipefail
program=$1 vornctl=$2 work=$3/idle

rm -rf "$work"
mkdir -p "$work/root/etc"
export VORN_ROOT=$work/root
echo '{ "bearer": "machine", "interfaces": { "cellular": "lo", "wifi": "lo" } }' >"$VORN_ROOT/etc/network.json"
"$vornctl" profile create Idle apn=internet

mkfifo "$work/out"
strace -f -qq -o "$work/trace" "$program" >"$work/out" &
tracer=$!
exec 3<"$work/out"
stop() {
    local traced
    traced=$(ps -o pid= --ppid "$tracer" || true)
    # shellcheck disable=SC2086
    kill $traced 2>/dev/null || true
    wait "$tracer" 2>/dev/null || true
}
trap stop EXIT
read -r -t 60 line <&3
[ "$line" = idle ] || { echo "the link was not opened: $line"; exit 1; }

# What the connection itself still has to do is over when a whole second has brought nothing new.
calls() { wc -l <"$work/trace"; }
for _ in $(seq 20); do
    before=$(calls)
    sleep 1
    after=$(calls)
    if [ "$before" -eq "$after" ]; then
        break
    fi
done
sleep 2
end=$(calls)
echo "system calls in two idle seconds: $((end - after))"
if [ "$end" -ne "$after" ]; then
    tail -n $((end - after)) "$work/trace"
    exit 1
fi
# The trace is no empty promise: it has seen the link being opened.
grep -q 'connect\|recv\|ppoll' "$work/trace"
