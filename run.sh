#!/usr/bin/env bash
# ./run.sh [PROJECT.fcpxml]: makes a rough edit of the project, or of a sample, into ./exports.
set -euo pipefail
source "$(dirname "$0")/scripts/common.sh"

project=$(realpath -- "${1:-$root/samples/sunday-service.fcpxml}")
install_packages "${build_packages[@]}"
build release corvane_rough_edit
mkdir -p "$root/exports"
cd "$root"
exec build/release/examples/corvane_rough_edit "$project" exports
