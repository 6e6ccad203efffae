# shellcheck shell=bash
# Shared by all scripts, which source it: help, the installation of missing tools, and a scratch folder that is removed at
# exit. Changes into the project's folder.

set -euo pipefail

script=scripts/$(basename "$(readlink -f "$0")")
# Where a script sources this file, "set -e" does not end it yet.
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/../.." || exit
export LC_ALL=C.UTF-8 HOME=${HOME:-~}
unset LANGUAGE CDPATH

scratch=$(mktemp -d "${TMPDIR:-/tmp}/kelplib.XXXXXX") || exit
trap 'rm -rf "$scratch"' EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

# offer_help WORD...: reads the script's help text from standard input; its first line is the usage. If the only word is -h or
# --help, prints the text and exits.
offer_help() {
    help_text=$(cat)
    case $#:${1-} in
        1:-h | 1:--help)
            printf '%s\n' "$help_text"
            exit
            ;;
    esac
}

# refuse: prints the usage on standard error and exits with status 2.
refuse() {
    printf '%s\n' "${help_text%%$'\n'*}" >&2
    exit 2
}

# fail TEXT...: prints one line on standard error and exits with status 1.
fail() {
    printf '%s: %s\n' "$script" "$*" >&2
    exit 1
}

# Each need is "TEST PACKAGE...": a command or the path of a file (wildcards allowed), and the Debian packages that provide it.
needs=()

need_for_demo() {
    needs+=("cmake cmake" "ninja ninja-build" "gcc g++" "g++ g++")
}

# For completions and man pages, as users see them.
need_for_documents() {
    needs+=("tmux tmux" "fish fish" "zsh zsh" "/usr/share/bash-completion/bash_completion bash-completion" "man man-db")
}

need_for_tests() {
    need_for_demo
    need_for_documents
    needs+=("/usr/src/googletest/CMakeLists.txt googletest" "make make" "python3 python3" "bats bats"
            "/usr/lib/python3/dist-packages/pyte/__init__.py python3-pyte" "shellcheck shellcheck"
            "mandoc mandoc" "groff groff-base" "lexgrog man-db")
}

# cmake checks for a compiler although the documentation needs none.
need_for_docs() {
    need_for_demo
    needs+=("doxygen doxygen" "/usr/share/doxygen-awesome-css/doxygen-awesome.css doxygen-awesome-css"
            "/usr/share/javascript/lunr/lunr.min.js libjs-lunr" "python3 python3")
}

need_for_windows() {
    needs+=("x86_64-w64-mingw32-g++-posix g++-mingw-w64-x86-64-posix" "wine wine wine64")
}

# Compilers for other processors, and emulators for their programs.
need_for_processors() {
    need_for_tests
    needs+=("aarch64-linux-gnu-g++ g++-aarch64-linux-gnu" "qemu-aarch64 qemu-user"
            "s390x-linux-gnu-g++ g++-s390x-linux-gnu" "qemu-s390x qemu-user")
}

need_for_minimal_debian() {
    needs+=("debootstrap debootstrap")
}

need_for_abi() {
    need_for_tests
    needs+=("abidiff abigail-tools")
}

need_for_debian_packages() {
    need_for_demo
    need_for_documents
    needs+=("dpkg-shlibdeps dpkg-dev" "file file" "pkg-config pkg-config"
            "python3 python3")
}

need_for_guard() {
    need_for_demo
    needs+=("python3 python3" "valgrind valgrind")
}

need_for_pictures() {
    need_for_demo
    needs+=("asciinema asciinema" "node nodejs" "npm npm" "python3 python3" "zsh zsh")
}

need_for_benchmarks() {
    local cmake='/usr/lib/*/cmake'
    need_for_guard
    needs+=(
        "gnuplot gnuplot-nox" "/usr/lib/python3/dist-packages/tqdm/__init__.py python3-tqdm"
        "$cmake/benchmark/benchmarkConfig.cmake libbenchmark-dev" "$cmake/absl/abslConfig.cmake libabsl-dev"
        "$cmake/boost_program_options-*/*-config.cmake libboost-program-options-dev"
        "$cmake/double-conversion/double-conversionConfig.cmake libdouble-conversion-dev"
        "$cmake/fmt/fmt-config.cmake libfmt-dev" "$cmake/gflags/gflags-config.cmake libgflags-dev"
        "/usr/include/CLI/CLI.hpp libcli11-dev" "/usr/include/cxxopts.hpp libcxxopts-dev"
        "/usr/include/tclap/CmdLine.h libtclap-dev")
}

need_for_fuzzing() {
    need_for_tests
    needs+=("clang clang" "clang++ clang"
            "/usr/lib/llvm-*/lib/clang/*/lib/linux/libclang_rt.fuzzer-x86_64.a libclang-rt-dev")
}

need_for_all_tests() {
    (( EUID != 0 )) || need_for_minimal_debian
    need_for_tests
    need_for_docs
    need_for_guard
    need_for_fuzzing
    need_for_windows
    need_for_processors
    needs+=(
        "pkg-config pkg-config" "mypy mypy" "run-clang-tidy clang-tidy" "clang-format clang-format"
        "chromium chromium" "chromedriver chromium-driver" "/usr/lib/python3/dist-packages/selenium/__init__.py python3-selenium"
        "/usr/lib/llvm-*/include/c++/v1/version libc++-dev" "/usr/lib/llvm-*/lib/libc++abi.so libc++abi-dev")
}

need_for_coverage() {
    need_for_tests
    needs+=("gcovr gcovr")
}

# Mutation parses the sources with the distribution's libclang.
need_for_mutation() {
    need_for_tests
    needs+=("/usr/lib/python3/dist-packages/clang/cindex.py python3-clang"
            "/usr/lib/llvm-*/lib/libclang-[0-9]*.so* python3-clang"
            "/usr/lib/llvm-*/lib/clang/*/include/stddef.h clang")
}

# is_there TEST: succeeds if the command or file exists.
is_there() {
    case $1 in
        /*) compgen -G "$1" >/dev/null ;;
        *) command -v "$1" >/dev/null ;;
    esac
}

# missing_packages: prints the packages of unmet needs, each once, on one line.
missing_packages() {
    local words word need_line packages=()
    for need_line in "${needs[@]}"; do
        read -ra words <<<"$need_line"
        if ! is_there "${words[0]}"; then
            for word in "${words[@]:1}"; do
                [[ " ${packages[*]} " == *" $word "* ]] || packages+=("$word")
            done
        fi
    done
    echo "${packages[*]}"
}

# check_cmake: fails if cmake is too old for the presets.
check_cmake() {
    local version
    version=$(cmake --version | sed -n '1s/^cmake version \([0-9]*\.[0-9]*\).*/\1/p')
    version=${version:-0.0}
    if (( ${version%.*} * 1000 + ${version#*.} < 3025 )); then
        fail "cmake $version is too old; kelplib needs cmake 3.25 or newer"
    fi
}

# quietly COMMAND...: runs the command with its output in the log.
quietly() {
    "$@" </dev/null >>"$scratch/log" 2>&1
}

# fail_with_log TEXT...: prints the end of the log, then fails.
fail_with_log() {
    tail -n 10 "$scratch/log" | sed 's/^/    /' >&2
    fail "$*"
}

# build_quietly PRESET [OPTION...]: configures and builds; the options are for the build.
build_quietly() {
    quietly cmake --preset "$1" || fail_with_log "cmake --preset $1 failed"
    quietly cmake --build --preset "$@" || fail_with_log 'the build failed'
}

# pack_usr BYTES: prints the first BYTES of an archive of this system's /usr, as material for long work.
pack_usr() {
    # tar complains about unreadable files, and about head, which closes the pipe early.
    { tar -C / -cf - usr/lib usr/share usr/bin 2>/dev/null || true; } | head -c "$1"
}

# apt_get WORD...: calls apt-get quietly and without questions; tries again once if it fails.
apt_get() {
    local call=(env DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8 apt-get -y -q -o DPkg::Lock::Timeout=300 "$@")
    if (( EUID != 0 )); then
        # Without a terminal sudo must not ask for a password.
        if [[ -t 0 ]]; then call=(sudo "${call[@]}"); else call=(sudo -n "${call[@]}"); fi
    fi
    quietly "${call[@]}" || quietly "${call[@]}"
}

# install_missing: installs the packages of unmet needs. Changes nothing and uses no network if all needs are met.
install_missing() {
    local packages words
    if is_there cmake; then check_cmake; fi
    packages=$(missing_packages)
    if [[ -n $packages ]]; then
        is_there apt-get || fail "missing; please install them (Debian package names): $packages"
        (( EUID == 0 )) || is_there sudo || fail "missing; please install them as root (apt-get install): $packages"
        printf 'Installing what is missing: %s\n' "$packages"
        read -ra words <<<"$packages"
        # A failed update may not matter; the installation shows whether it does.
        apt_get update || true
        apt_get install --no-install-recommends "${words[@]}" || fail_with_log "missing and could not be installed: $packages"
        hash -r
        packages=$(missing_packages)
        [[ -z $packages ]] || fail_with_log "installed, but their programs or files are not in the expected places: $packages"
    fi
    check_cmake
}

# prepare_wine: lets wine create its settings, which takes a while the first time and would delay a test.
prepare_wine() {
    echo 'Preparing wine'
    quietly timeout 300 cmake/run-under-wine wineboot || fail_with_log 'wine does not start'
}
