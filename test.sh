#!/usr/bin/env bash
# Installs what is missing, builds and runs the tests, or checks format and static analysis.
#
#   ./test.sh [--preset dev|release|asan|coverage] [ctest arguments]
#   ./test.sh --lint [--all|--product|--format]
#                                       checks the format of all sources and analyses the targets with a source changed since
#                                       origin/main, or all, or all but tests, or none
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/tools/setup.sh"

preset=dev
case "${1:-}" in
    --lint)
        shift
        install_missing "${build_packages[@]}" "${lint_packages[@]}"
        exec "$project_dir/tools/lint" "$@"
        ;;
    --preset)
        preset=${2:?--preset needs a name}
        shift 2
        ;;
esac

install_missing "${build_packages[@]}" "${run_packages[@]}" "${test_packages[@]}"
install_if_possible "${optional_test_packages[@]}"
build "$preset" all
cd "$project_dir"
exec ctest --preset "$preset" --parallel "$(nproc)" "$@"
