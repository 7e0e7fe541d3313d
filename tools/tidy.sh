#!/usr/bin/env bash
# Runs clang-tidy on every source that a build compiles. A source without findings is not checked again
# until it, a header of the project that it includes, or .clang-tidy changes.
#
#   tools/tidy.sh BUILD_FOLDER [all]    without "all" the tests are left out: they take as long as
#                                       everything else

source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

build=${1:-build/debug} scope=${2:-}
stamps=build/tidy
[[ -f $build/compile_commands.json ]] || fail "$build holds no build"
mkdir -p "$stamps"

root=$PWD
common_key=$({ clang-tidy --version; cat .clang-tidy; } | sha256sum)

# The project's files that each source includes, as lines "source<tab>file".
made_of() {
  ninja -C "$build" -t deps | awk -v root="$root/" '
    /^[^ ].*#deps/ { source = ""; next }
    /^ / {
      sub(/^ +(\.\.\/)*/, "")  # with a compiler cache the paths are relative
      if (substr($0, 1, length(root)) == root) $0 = substr($0, length(root) + 1)
      if ($0 ~ /^\// || $0 ~ /^build\// || $0 !~ /\.(cpp|h)$/) next
      if (source == "") source = $0
      if (source ~ /\.cpp$/) print source "\t" $0
    }' | sort -u
}

declare -A hash_of=() content_of=()
while read -r hash file; do hash_of[$file]=$hash; done \
  < <(made_of | cut -f2 | sort -u | while IFS= read -r file; do [[ ! -f $file ]] || printf '%s\0' "$file"; done |
      xargs -0 --no-run-if-empty sha256sum)
while IFS=$'\t' read -r source file; do
  [[ $scope == all || $source != tests/* ]] || continue
  if [[ -f $source ]]; then content_of[$source]+="$file ${hash_of[$file]:-}"$'\n'; fi
done < <(made_of)
[[ ${#content_of[@]} -gt 0 ]] || fail "$build has no record of includes; build it first"

# The stamp of a source holds the hash of the content that had no findings.
todo=()
for source in "${!content_of[@]}"; do
  key=$(sha256sum <<<"$common_key${content_of[$source]}")
  stamp=$stamps/${source//\//@}
  [[ -f $stamp && $(<"$stamp") == "$key" ]] || todo+=("$source" "$stamp" "$key")
done

tidy_one() {
  local output
  if output=$(clang-tidy --quiet -p "$1" "$2" 2>&1); then
    printf '%s\n' "$4" >"$3"
  else
    grep -v -E '^[0-9]+ warnings? (generated|treated)' <<<"$output"
    return 1
  fi
}
export -f tidy_one

failed=0
if [[ ${#todo[@]} -gt 0 ]]; then
  printf '%s\0' "${todo[@]}" |
    xargs -0 -n 3 -P "$(nproc)" bash -c 'tidy_one "$0" "$@"' "$build" || failed=1
fi
printf 'clang-tidy: %d sources, %d checked\n' "${#content_of[@]}" $((${#todo[@]} / 3))
exit "$failed"
