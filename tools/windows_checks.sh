# What is checked under Wine, for the build of a preset: sourced, after setup.sh.

# The native runs' statement logs, which the tests write.
native_statements=build/debug/tests/scenarios/statements

without_random_names() { sed -E 's/##temp(T|Prezzo|Griglia)[0-9A-F]{32}/##temp\1/g' "$1"; }

# same_in_window SCENARIO NATIVE LOG: plays a scenario, which is two folders deep, in the real window. Its
# statements must be those of the native run, except for the random part of working tables' names.
same_in_window() {
  local scenario=$1 native=$2 log=$3 options
  options=$(sed -n '1s/^#! //p' "$scenario")
  # The options are split as a shell does, as in the native tests.
  if ! (cd "$(dirname "$scenario")" && eval "in_wine ../../$windows_workbench play \
        '$(basename "$scenario")' $options --statements '../../$log'") >"${log%.jsonl}.out" 2>&1; then
    printf '%s: ' "$scenario"
    tail -n 5 "${log%.jsonl}.out"
    return 1
  fi
  cmp <(without_random_names "$native") <(without_random_names "$log") && return
  printf '%s: the statements in the real window are others\n' "$scenario"
  return 1
}

# real_window_scenarios PRESET: plays every scenario again in the real window on a virtual screen.
real_window_scenarios() (
  windows_preset=$1
  source tools/wine.sh
  start_virtual_screen
  local logs=build/$1/statements failed=0 scenario name
  mkdir -p "$logs"
  for scenario in tests/scenarios/*.scenario workbench/scenarios/*.scenario; do
    name=${scenario%%/*}.$(basename "$scenario" .scenario)
    same_in_window "$scenario" "$native_statements/$name.jsonl" "$logs/$name.jsonl" || failed=1
  done
  exit "$failed"
)

# windows_checks PRESET: the COM objects, the DLL as a server, its window opened 40 times.
windows_checks() (
  windows_preset=$1
  source tools/wine.sh
  start_virtual_screen
  local dll="build\\$1\\workbench\\KEBU_ANAGKELMORIA.dll" failed=0 programs=build/$1/tests/windows
  in_wine "$programs/automation_tests.exe" --gtest_brief || failed=1
  in_wine "$programs/server_tests.exe" --gtest_brief "$dll" || failed=1
  in_wine "$programs/window_tests.exe" --gtest_brief "$dll" 40 || failed=1
  exit "$failed"
)
