#!/bin/sh
# Removes what `sh scripts/install.sh` (or `cmake --install`) installed from a build folder,
# as listed in its install_manifest.txt, and the folders that this leaves empty.
#
#   sh scripts/uninstall.sh [BUILD_DIR]        (default: build/release)
set -eu
cd "$(dirname "$0")/.."
manifest=${1:-build/release}/install_manifest.txt
if [ ! -f "$manifest" ]; then
    echo "uninstall.sh: no $manifest: nothing was installed from that build folder." >&2
    exit 1
fi

removed=0
while IFS= read -r file || [ -n "$file" ]; do  # the last line has no newline
    [ -n "$file" ] || continue
    if [ -e "$file" ] || [ -L "$file" ]; then
        if ! rm -f "$file" 2>/dev/null; then
            echo "uninstall.sh: cannot remove $file: run as its owner (or root)." >&2
            exit 1
        fi
        removed=$((removed + 1))
    fi
    # Folders the installation made and nothing else uses now; the empty ext folder of the
    # plug-in directory is made without a file in it, so it is not in the list.
    case $file in */lib/norvane/ostrel/*) rmdir "${file%%/lib/norvane/ostrel/*}/lib/norvane/ostrel/ext" 2>/dev/null || true ;; esac
    dir=$(dirname "$file")
    while rmdir "$dir" 2>/dev/null; do dir=$(dirname "$dir"); done
done <"$manifest"
rm -f "$manifest"
echo "Removed $removed installed files."
