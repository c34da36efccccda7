# What run, test, .ci/run and the checks share; sourced by them. Bash, with errors ending the script.
# shellcheck shell=bash

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

say() {
    printf '%s\n' "$*" >&2
}

is_x86() {
    case $(uname -m) in
    x86_64 | i?86) return 0 ;;
    *) return 1 ;;
    esac
}

# Installs those of the packages that are missing: as root, or through sudo where that asks nothing. Otherwise
# tells what to type, and ends the script.
need_packages() {
    local package missing=()
    # Elsewhere than on Debian the build says what it lacks.
    command -v dpkg-query >/dev/null || return 0
    for package in "$@"; do
        if [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" != installed ]; then
            missing+=("$package")
        fi
    done
    if [ ${#missing[@]} -eq 0 ]; then
        return 0
    fi
    local become=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! sudo -n true 2>/dev/null; then
            say "missing packages; type: sudo apt-get install ${missing[*]}"
            exit 1
        fi
        become=(sudo -n)
    fi
    say "installing ${missing[*]}"
    local install=(env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "${missing[@]}")
    # A fresh machine has no package lists yet.
    if ! "${become[@]}" "${install[@]}" >/dev/null 2>&1; then
        quietly "${become[@]}" apt-get update
        quietly "${become[@]}" "${install[@]}"
    fi
}

# Packages to build and run with; the 32-bit compiler where there is one.
build_packages() {
    local packages=(g++ cmake ninja-build libcli11-dev libutfcpp-dev nlohmann-json3-dev)
    if [ "$(uname -m)" = x86_64 ]; then
        packages+=(g++-multilib)
    fi
    printf '%s\n' "${packages[@]}"
}

# Whether programs of the product's ABI can be built and run here.
has_32_bit() {
    local folder result=1
    is_x86 || return 1
    folder=$(mktemp -d)
    if printf 'int main() {}\n' | g++ -m32 -x c++ - -o "$folder/probe" 2>/dev/null && "$folder/probe"; then
        result=0
    fi
    rm -rf "$folder"
    return $result
}

# Runs a command and shows what it said only when it fails, which ends the script.
quietly() {
    local log status=0
    log=$(mktemp)
    "$@" >"$log" 2>&1 || status=$?
    if [ $status -ne 0 ]; then
        cat "$log" >&2
        rm -f "$log"
        say "failed: $*"
        exit $status
    fi
    rm -f "$log"
}

# configure PRESET FOLDER [cmake argument...]: once, and when the presets have changed; all other changes are the
# build's own to notice. Warnings are errors for who sets ZARNEK_WERROR=ON.
configure() {
    local preset=$1 folder=$2 werror=${ZARNEK_WERROR:-OFF}
    shift 2
    if [ ! -f "$folder/build.ninja" ] || [ "$root/CMakePresets.json" -nt "$folder/build.ninja" ] ||
        ! grep -qx "ZARNEK_WERROR:BOOL=$werror" "$folder/CMakeCache.txt"; then
        (cd "$root" && quietly cmake --preset "$preset" -B "$folder" -DZARNEK_WERROR="$werror" "$@")
    fi
}

passed=0
failed=0

# Builds a preset, as a whole or the target that is named. A build that fails ends the script.
build() {
    local preset=$1
    say "$preset: building"
    configure "$preset" "$root/build/$preset"
    quietly cmake --build "$root/build/$preset" --parallel "$(nproc)" ${2:+--target "$2"}
}

# Builds a preset, runs its tests, tells the figures that they print, and adds them to $passed and $failed.
run_suite() {
    local preset=$1 log total broken
    build "$preset"
    say "$preset: testing"
    log=$(mktemp)
    (cd "$root" && ctest --preset "$preset" --parallel "$(nproc)") >"$log" 2>&1 || true
    # Failures are told whole, successes by ctest's own summary.
    if grep -q '^100% tests passed' "$log"; then
        sed -n 's/^figures: /    /p' "$root/build/$preset/Testing/Temporary/LastTest.log"
        tail -n 4 "$log"
    else
        grep -v ' Passed ' "$log" || true
    fi
    broken=$(sed -n 's/.*tests passed, \([0-9]*\) tests failed out of [0-9]*.*/\1/p' "$log")
    total=$(sed -n 's/.*tests passed, [0-9]* tests failed out of \([0-9]*\).*/\1/p' "$log")
    rm -f "$log"
    if [ -z "$total" ]; then
        say "$preset: the tests did not run"
        failed=$((failed + 1))
        return 0
    fi
    passed=$((passed + total - broken))
    failed=$((failed + broken))
}

# check COMMAND...: a check that is no test run; one case.
check() {
    say "$*"
    if ("$@"); then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
    fi
}

# The last line of a test run, and its exit status.
finish() {
    printf '%d passed, %d failed\n' "$passed" "$failed"
    [ "$failed" -eq 0 ]
}
