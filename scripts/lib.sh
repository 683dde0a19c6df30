# SPDX-License-Identifier: Apache-2.0
# Shell functions the build, release and CI scripts share; sourced, not run.

# Runs a named step, its name before and its time in seconds after. Under
# set -e a failing command inside the step ends the script, as it would
# without the step.
step() { # name, command...
  local name=$1 t=$SECONDS
  shift
  echo "== $name"
  "$@"
  echo "== $name: $((SECONDS - t)) s"
}
