#!/usr/bin/env bash
# Installs what is missing, builds and starts the application. Arguments go to the application.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/tools/setup.sh"

install_missing "${build_packages[@]}" "${run_packages[@]}"
build release veltrano-gaming MacroBindingView

application="$project_dir/build/release/bin/veltrano-gaming"
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] || [ $# -gt 0 ]; then
    exec "$application" "$@"
fi

pictures="$project_dir/build/release/pictures"
say "There is no display: showing the window on a virtual one."
"$project_dir/tools/with-display" "$application" \
    --device Veltrano.Gaming.LeftHandedController.K13 --open-view --screenshots "$pictures"
say "Its pictures are in $pictures:"
ls "$pictures" >&2
