#!/usr/bin/env bash
# Runs a Windows program. What it prints is handed on when it has ended: the services that wine starts
# beside the first program keep its output open as long as they live, and who reads that from a pipe
# would wait for them. Usage: under_wine.sh PROGRAM [ARGUMENT...]
set -u
printed=$(mktemp)
exec 3>"$printed" 4<"$printed"
rm "$printed"
/usr/lib/wine/wine64 "$@" </dev/null >&3 2>&1 3>&- 4<&-
status=$?
cat <&4
exit "$status"
