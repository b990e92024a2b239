#!/usr/bin/env bash
# Configures the project into a scratch directory with a trace and checks that every file under
# /usr that CMake read (its scripts, modules and the packages' config files) belongs to a package
# that scripts/install-deps.sh installs on a fresh machine: one of its packages, their Depends
# and Pre-Depends (recursively, never Recommends or Suggests, which it does not install), or a
# package every Debian system has (Essential or Priority required). Names each file that comes
# from elsewhere, with its package.
#
#   configure_reads_only_installed_packages.sh SOURCE_DIR [CMAKE [INSTALL_SCRIPT]]
#
# Exit status: 0 all covered, 1 not, 77 (skipped) without dpkg and apt-cache.
set -uo pipefail

source_dir=$1
cmake=${2:-cmake}
install_script=${3:-$source_dir/scripts/install-deps.sh}

for tool in dpkg dpkg-query apt-cache; do
    command -v "$tool" >/dev/null || { echo "SKIP: no $tool here"; exit 77; }
done

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

mapfile -t listed < <("$install_script" --list)
[ ${#listed[@]} -gt 0 ] || { echo "$install_script --list printed no packages"; exit 1; }

# Everything a fresh machine has after the script: the closure of its list over hard
# dependencies (virtual packages appear as <name>), plus the base system.
if ! apt-cache depends --recurse --no-recommends --no-suggests --no-conflicts --no-breaks \
    --no-replaces --no-enhances "${listed[@]}" >"$scratch/depends" 2>"$scratch/apt-errors"; then
    echo "SKIP: apt-cache cannot resolve the list here:"; cat "$scratch/apt-errors"
    exit 77
fi
grep -v '^ ' "$scratch/depends" | tr -d '<>' >"$scratch/closure"
dpkg-query -W -f='${Package} ${Essential} ${Priority}\n' |
    awk '$2 == "yes" || $3 == "required" { print $1 }' >>"$scratch/closure"
sort -u -o "$scratch/closure" "$scratch/closure"

if ! "$cmake" -S "$source_dir" -B "$scratch/build" -G Ninja --trace-format=json-v1 \
    --trace-expand --trace-redirect="$scratch/trace.json" >"$scratch/configure.log" 2>&1; then
    echo "configuring failed:"; tail -n 30 "$scratch/configure.log"
    exit 1
fi
grep -o '"file":"/usr/[^"]*"' "$scratch/trace.json" | sed 's/^"file":"//; s/"$//' |
    sort -u >"$scratch/files"

# One dpkg -S for all files (it answers "pkg[:arch][, pkg...]: path"); a merged /usr may
# register a file without its /usr prefix.
mapfile -t files <"$scratch/files"
dpkg -S "${files[@]}" 2>/dev/null | grep -v '^diversion by' >"$scratch/owners"
mapfile -t unowned < <(sed 's/^.*: \//\//' "$scratch/owners" | sort -u | comm -13 - "$scratch/files")
if [ ${#unowned[@]} -gt 0 ]; then
    dpkg -S "${unowned[@]#/usr}" 2>/dev/null | grep -v '^diversion by' | sed 's/: \//: \/usr\//' \
        >>"$scratch/owners"
fi
status=0
while IFS=$'\t' read -r file owners; do
    covered=0
    IFS=', ' read -r -a packages <<<"$owners"
    for package in "${packages[@]}"; do
        grep -qxF "${package%%:*}" "$scratch/closure" && covered=1
    done
    if [ $covered = 0 ]; then
        echo "NOT INSTALLED BY THE SCRIPT: $file (${owners:+package }${owners:-no package owns it})"
        status=1
    fi
done < <(awk 'NR == FNR { i = index($0, ": /"); owner[substr($0, i + 2)] = substr($0, 1, i - 1); next }
              { print $0 "\t" owner[$0] }' "$scratch/owners" "$scratch/files")
echo "$(wc -l <"$scratch/files") files under /usr read while configuring," \
     "$(wc -l <"$scratch/closure") packages installed by the script or the base system"
exit $status
