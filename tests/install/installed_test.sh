#!/usr/bin/env bash
# Installs a build into a folder with a difficult name and builds programs of somebody else on it: by
# find_package, by pkg-config, and on the tree itself as a part of another project; moves the
# installation and builds once more. Prints what fails; exits 1 then.
# usage: installed_test.sh <folder of the build> <compiler>
set -euo pipefail
build=$(realpath "$1")
compiler=$2
source=$(realpath "$(dirname "$0")/../..")

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
programs="$work/programs"
prefix="$work/erster Ort für alles"
log="$work/log"
failed=0

complain() {
    echo "$1"
    failed=1
}

# Runs a command; shows what it said if it fails.
quietly() {
    "$@" > "$log" 2>&1 || { cat "$log"; echo "failed: $*"; exit 1; }
}

configure() { # where, how, more
    local where=$1 how=$2
    shift 2
    quietly cmake -G Ninja -S "$programs" -B "$work/$where" -DFROM="$how" \
        -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_BUILD_TYPE=Release "$@"
}

runs_headless() { # program, what it should say of the resources
    "$1" > "$log" 2>&1 || complain "$1: exit status $?"
    grep -qx "$2" "$log" || { cat "$log"; complain "$1: not said: $2"; }
    [ "$2" = 'no resources' ] || grep -qx 'line 2' "$log" || { cat "$log"; complain "$1: no text"; }
}

# Until the program has its windows, then it is asked to end.
runs_desktop() { # program, what the X server is told of its icon
    xvfb-run -a bash -c '"$0" & program=$!
        for _ in {1..100}; do
            xdotool search --name "^Hallo" > /dev/null 2>&1 && break
            sleep 0.1
        done
        xdotool search --name "^Hallo" > /dev/null 2>&1 && echo "window shown"
        xprop -id "$(xdotool search --name "^Hallo" | head -n 1)" _NET_WM_ICON | head -n 1
        kill "$program"; wait "$program"' "$1" > "$log" 2>&1 || complain "$1: exit status $?"
    grep -qx 'window shown' "$log" && ! grep -qE 'Resources not found|getbinary|t_LoadFont' "$log" ||
        { cat "$log"; complain "$1: no window or no resources"; }
    grep -q "^_NET_WM_ICON$2" "$log" || { cat "$log"; complain "$1: icon is not$2"; }
}

# Everything that `all` builds in a folder is of the programs or a library.
builds_libraries_only() { # build folder
    ninja -C "$1" -n | grep -oE 'Linking CXX (executable|shared module) .*' |
        grep -v 'executable guest_' && complain "$1: builds more than libraries"
    return 0
}

mkdir "$programs"
cp "$source"/tests/install/programs/* "$programs"
cp "$source/packaging/icons/48.png" "$programs/icon.png"
sed -n '/^```cpp$/,/^```$/{/^```/d;p}' "$source/README.md" > "$programs/readme.cpp"

quietly cmake --install "$build" --prefix "$prefix"
for file in bin/korvandi share/applications/korvandi.desktop share/man/man6/korvandi.6 \
    share/icons/hicolor/{16x16/apps/korvandi.png,scalable/apps/korvandi.svg} \
    share/doc/korvandi/{LICENSE,LICENSE-DejaVu.txt} 'share/korvandi/MenloBold 16x32.font'; do
    [ -f "$prefix/$file" ] || complain "not installed: $file"
done
if grep -rIlF -e "$source" -e "$prefix" "$prefix"; then complain "these name a folder of the build"; fi
if grep -rnE -- '-W[a-z]' "$prefix"/lib*/cmake "$prefix"/lib*/pkgconfig; then
    complain "warnings are handed on"
fi

# The same again after the installation was moved.
for place in first second; do
    configure "package $place" package -DCMAKE_PREFIX_PATH="$prefix"
    quietly cmake --build "$work/package $place"
    runs_headless "$work/package $place/guest_headless" 'resources found'

    for module in korvandi-headless korvandi; do
        main=$programs/headless.cpp
        [ $module = korvandi ] && main=$programs/readme.cpp
        flags=$(PKG_CONFIG_PATH="$(echo "$prefix"/lib*/pkgconfig)" \
            pkg-config --cflags --libs $module)
        eval "flags=($flags)"
        quietly "$compiler" -fPIC "$main" "${flags[@]}" -o "$prefix/bin/guest_$module"
    done
    runs_headless "$prefix/bin/guest_korvandi-headless" 'resources found'
    mkdir -p "$work/elsewhere"
    cp "$prefix/bin/guest_korvandi-headless" "$work/elsewhere/lonely"
    runs_headless "$work/elsewhere/lonely" 'no resources'

    new="$work/zweiter Ort für alles"
    [ $place = first ] && mv "$prefix" "$new" && prefix=$new
    runs_desktop "$work/package $place/guest_desktop" '(CARDINAL)'
    runs_desktop "$prefix/bin/guest_korvandi" ':  not found'
done

# A program's own shared folder serves where there is no other.
mkdir -p "$work/own/bin" "$work/own/share"
cp "$prefix/bin/guest_korvandi-headless" "$work/own/bin/guest"
cp -r "$prefix/share/korvandi" "$work/own/share/guest"
runs_headless "$work/own/bin/guest" 'resources found'

configure component component -DCMAKE_PREFIX_PATH="$prefix"
quietly cmake --build "$work/component"

configure fetch fetch -DKORVANDI_SOURCE="$source"
builds_libraries_only "$work/fetch"
configure part part -DKORVANDI_SOURCE="$source"
builds_libraries_only "$work/part"

exit "$failed"
