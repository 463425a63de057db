#!/usr/bin/env bash
# scripts/run tells each step and ends a failure with one clear line: run on a copy of the
# scripts with stand-ins for the package check and for cmake.
set -uo pipefail
source_dir="$1"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$work/tree/scripts" "$work/bin"
cp "$source_dir/scripts/run" "$work/tree/scripts/run"
printf '#!/usr/bin/env bash\nexit 0\n' >"$work/tree/scripts/deps"
chmod +x "$work/tree/scripts/deps"

expect_last_line() {  # expected line, then the command's stderr file
  local last
  last=$(tail -n 1 "$2")
  if [ "$last" != "$1" ]; then
    echo "expected the last line: $1"
    echo "got: $last"
    exit 1
  fi
}

# A build that fails: the step is named.
printf '#!/usr/bin/env bash\n[ "$1" = "--build" ] && { echo "compiler says no" >&2; exit 2; }\nexit 0\n' \
  >"$work/bin/cmake"
chmod +x "$work/bin/cmake"
if PATH="$work/bin:$PATH" "$work/tree/scripts/run" >"$work/out" 2>"$work/err"; then
  echo "a failed build was not reported"; exit 1
fi
grep -q "^== building Norvo II and its sample data$" "$work/out" || { echo "steps not told"; exit 1; }
expect_last_line "scripts/run: failed while building Norvo II and its sample data (the lines above say why)." \
  "$work/err"

# A build that works, but no display to start on.
printf '#!/usr/bin/env bash\nexit 0\n' >"$work/bin/cmake"
if env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM PATH="$work/bin:$PATH" \
  "$work/tree/scripts/run" >"$work/out" 2>"$work/err"; then
  echo "a missing display was not reported"; exit 1
fi
expect_last_line "scripts/run: no display to show the window on (DISPLAY is not set): run it in a desktop session, or as xvfb-run -a scripts/run." \
  "$work/err"
echo "scripts/run reports its steps and failures"
