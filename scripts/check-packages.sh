#!/bin/sh
# Checks the ways ostrel is installed, end to end:
#
#   sh scripts/check-packages.sh [STEP...]
#
#   build    build the Debian packages from a copy of the tree and run lintian on them;
#            the .deb files are left in build/packages/
#   system   (root) install the packages, run a bundled command, build the example plug-in
#            against the installed kit with CMake and with pkg-config and run it, then purge
#            the packages and check that nothing is left behind
#   private  as a user without root (tindra-check, made when needed; the current user when
#            not run as root): build, install into ~/.local, run a bundled command, uninstall
#
#   scripts  (fast; run by the test command) the scripts' syntax, their answers to bad input,
#            and an install of build/test into a scratch prefix that uninstall.sh undoes
#
# Without steps: build, system and private. Tests are not run inside the package build (the test command runs
# them); DEB_BUILD_OPTIONS without nocheck in the environment turns them on.
set -eu
cd "$(dirname "$0")/.."
root=$(pwd)
out=$root/build/packages

say() { printf '\n== %s\n' "$*"; }
die() {
    echo "check-packages.sh: $*" >&2
    exit 1
}

build_packages() {
    say "Building the Debian packages"
    work=$root/build/deb
    rm -rf "$work" && mkdir -p "$work/tindra" "$out"
    # A clean copy: dpkg-buildpackage writes its results next to the tree it builds.
    tar -C "$root" --exclude=./build --exclude=./.git -cf - . | tar -C "$work/tindra" -xf -
    options=${DEB_BUILD_OPTIONS-nocheck}
    profiles=""
    case " $options " in *" nocheck "*) profiles=-Pnocheck ;; esac
    command -v ccache >/dev/null 2>&1 && export CMAKE_CXX_COMPILER_LAUNCHER=ccache
    (cd "$work/tindra" && DEB_BUILD_OPTIONS=$options dpkg-buildpackage -us -uc -b $profiles \
        >"$work/build.log" 2>&1) || {
        tail -40 "$work/build.log" >&2
        die "dpkg-buildpackage failed; the whole log is $work/build.log"
    }
    rm -f "$out"/*.deb
    cp "$work"/*.deb "$out"/
    ls "$out"
    say "lintian"
    # Errors fail the check; warnings and notes are printed for a person to weigh.
    lintian --fail-on error "$work"/*.changes || die "lintian reports errors"
}

# The example plug-in as an outside author builds it: CMake's find_package, then pkg-config.
build_example_against_system_kit() {
    work=$(mktemp -d)
    cmake -S examples/resource -B "$work/cmake" -G Ninja >/dev/null
    cmake --build "$work/cmake" >/dev/null
    c++ -fPIC $(pkg-config --cflags tindra) examples/resource/*.cc -o "$work/resource.so" \
        $(pkg-config --libs tindra) $(pkg-config --variable=plugin_ldflags tindra)
    for plugin in "$work/cmake/resource.so" "$work/resource.so"; do
        # The installed package already provides the command: load the new one alone.
        OSTREL_SKIP_DEFAULT_PLUGINS=1 ostrel --plugin "$plugin" system resource get --units KiB \
            >/dev/null || die "the example plug-in built against the kit does not run: $plugin"
    done
    echo "example plug-in built with CMake and with pkg-config, and run"
    rm -rf "$work"
}

system_packages() {
    [ "$(id -u)" -eq 0 ] || die "the system step installs packages: run it as root"
    ls "$out"/*.deb >/dev/null 2>&1 || build_packages
    say "Installing the packages"
    DEBIAN_FRONTEND=noninteractive apt-get install -y -qq "$out"/libtindra0_*.deb \
        "$out"/libtindra-dev_*.deb "$out"/ostrel_*.deb >/dev/null
    files=$(dpkg -L libtindra0 libtindra-dev ostrel | sort -u)
    errors=$(mktemp)
    ostrel storage filesystem list 2>"$errors" | head -3
    [ ! -s "$errors" ] || die "ostrel complained: $(cat "$errors")"
    [ -x /usr/libexec/ostrel/ostrel-complete ] || die "the completion helper is missing"
    build_example_against_system_kit
    say "Purging the packages"
    DEBIAN_FRONTEND=noninteractive apt-get purge -y -qq libtindra0 libtindra-dev ostrel >/dev/null
    left=""
    for path in $files; do
        # Folders shared with other packages stay, of course.
        if [ -e "$path" ] && [ ! -d "$path" ]; then left="$left $path"; fi
    done
    [ ! -e /usr/lib/norvane ] || left="$left /usr/lib/norvane"
    [ -z "$left" ] || die "left behind after purge:$left"
    rm -f "$errors"
    echo "installed, used and purged without a trace"
}

private_install() {
    user=$(id -un)
    run=""
    if [ "$(id -u)" -eq 0 ]; then
        user=tindra-check
        id "$user" >/dev/null 2>&1 || useradd --create-home --shell /bin/sh "$user"
        run="runuser -u $user --"
    fi
    home=$(getent passwd "$user" | cut -d: -f6)
    say "Private install as $user into $home/.local"
    tree=$home/tindra-check
    $run rm -rf "$tree"
    $run mkdir -p "$tree"
    tar -C "$root" --exclude=./build --exclude=./.git -cf - . | $run tar -C "$tree" -xf -
    $run env HOME="$home" sh "$tree/scripts/install.sh" --prefix "$home/.local" >/dev/null
    errors=$($run env HOME="$home" "$home/.local/bin/ostrel" storage filesystem list 2>&1 >/dev/null)
    [ -z "$errors" ] || die "the privately installed ostrel complained: $errors"
    $run sh "$tree/scripts/uninstall.sh" "$tree/build/release"
    left=$($run find "$home/.local" ! -type d 2>/dev/null | head -5)
    [ -z "$left" ] || die "left behind after uninstall: $left"
    $run rm -rf "$tree"
    echo "built, installed, run and uninstalled as $user"
}

# Runs "$@" and expects status 1 and a message holding the given text on standard error.
expect_refusal() {
    text=$1 && shift
    if err=$("$@" 2>&1 >/dev/null); then die "accepted, but should not: $*"; fi
    case $err in *"$text"*) ;; *) die "'$*' said '$err', not '$text'" ;; esac
}

check_scripts() {
    say "Scripts"
    for script in scripts/*.sh bench/*.sh; do sh -n "$script"; done
    bash -n build/test/tools/completion/ostrel
    ! command -v zsh >/dev/null 2>&1 || zsh -n build/test/tools/completion/_ostrel
    expect_refusal "unknown argument '--bogus'" sh scripts/install.sh --bogus
    expect_refusal "no build/none/install_manifest.txt" sh scripts/uninstall.sh build/none
    as_user=""
    if [ "$(id -u)" -eq 0 ]; then
        id tindra-check >/dev/null 2>&1 || useradd --create-home --shell /bin/sh tindra-check
        as_user="runuser -u tindra-check --"
    fi
    expect_refusal "/usr is not writable by" $as_user sh scripts/install.sh --prefix /usr/tindra-x
    scratch=$(mktemp -d)
    cmake --install build/test --prefix "$scratch/prefix" >/dev/null
    "$scratch/prefix/bin/ostrel" ostrel command list -c list >/dev/null
    sh scripts/uninstall.sh build/test >/dev/null
    [ -z "$(find "$scratch/prefix" ! -type d 2>/dev/null)" ] || die "uninstall.sh left files"
    rm -rf "$scratch"
    echo "scripts refuse bad input; install and uninstall leave nothing behind"
}

[ $# -gt 0 ] || set -- build system private
for step in "$@"; do
    case $step in
        build) build_packages ;;
        system) system_packages ;;
        private) private_install ;;
        scripts) check_scripts ;;
        *) die "unknown step '$step' (build, system, private, scripts)" ;;
    esac
done
