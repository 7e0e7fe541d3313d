# The parts of `./test long`: checks that take too long for every run. Sourced by ./test.
#
# To add a part, add a line to the table and a function long_NAME that fails when the check does.

long_parts=(
  "walk|random gestures in the window, each run with other ones: seeds from SEED, MINUTES long (25)"
  "window_walk|the same gestures in the real window, statements compared: SEED, MINUTES (25), GESTURES (Wine)"
  "fuzz|libFuzzer on the engine, scenarios, database files, conditions, conversions: SEED, MINUTES (25)"
  "faults|the whole fault walk; then two faults at a time in each of its scenarios, lost answers too: SEED"
  "durability|500 kills while saving, full disks, damaged files, 100 pairs of processes: SEED"
  "openings|the window opened 10,000 times natively and 1,000 times for real, nothing left behind (Wine)"
  "heap|every scenario in the real window on a heap that finds uses of freed memory (Wine)"
  "x86|the 32-bit DLL in a 32-bit Debian: COM checks, 40 openings, all scenarios (as root)"
  "acceptance|the acceptance run with every scenario, on the workbench's own database (Wine)"
  "package|the packages: installed, upgraded and removed, rows compared, built twice (Wine)"
  "bench|the benchmarks; fails when one is above its aim"
)

# The scenarios natively, for their statement logs.
native_scenarios() {
  build debug workbench
  rm -f "$native_statements"/*.jsonl
  ctest --preset debug --parallel "$(nproc)" -R '^scenario\.' >build/scenarios.log 2>&1 ||
    { tail -n 20 build/scenarios.log; return 1; }
}

# The seed of a run: SEED, or one that no other run has.
seed_of_run() { printf '%s' "${SEED:-$(date +%s)}"; }

# Two processes, each with seeds of its own. A walk that breaks a rule is printed as a scenario.
long_walk() (
  need_native_packages
  build walk kebu_walk
  local seed seconds=$((${MINUTES:-25} * 60)) failed=0 one two
  seed=$(seed_of_run)
  local walk=(build/walk/tests/walk/kebu_walk --gestures 1000000 --seconds "$seconds")
  "${walk[@]}" --seed "$seed" & one=$!
  "${walk[@]}" --seed $((seed + 500000000)) & two=$!
  wait "$one" || failed=1
  wait "$two" || failed=1
  exit "$failed"
)

# Walks that kept to the rules, each played again natively and in the real window. A gesture that nobody could
# make is not part of it.
long_window_walk() (
  need_native_packages
  need_windows_packages
  build walk kebu_walk workbench
  build windows-x64 workbench KEBU_ANAGKELMORIA
  source tools/wine.sh
  start_virtual_screen
  local end=$((SECONDS + ${MINUTES:-25} * 60)) folder=build/window-walk scenario name seed
  local failed=0 walks=0 left_out=0 gestures=0
  seed=$(seed_of_run)
  rm -rf "$folder"
  mkdir -p "$folder"
  build/walk/tests/walk/kebu_walk --seed "$seed" --gestures "${GESTURES:-50000}" --write "$folder" ||
    failed=1
  for scenario in "$folder"/*.scenario; do
    [[ $SECONDS -lt $end ]] || break
    name=${scenario%.scenario}
    # Without a gesture that the real window cannot have, another one may not be possible.
    build/walk/workbench/workbench play "$scenario" --statements "$name.native.jsonl" >"$name.native.out" 2>&1 ||
      { left_out=$((left_out + 1)); continue; }
    same_in_window "$scenario" "$name.native.jsonl" "$name.jsonl" || failed=1
    walks=$((walks + 1))
    gestures=$((gestures + $(grep -c -v '^answer' "$scenario")))
  done
  [[ $walks -gt 0 ]] || failed=1
  say "seed $seed: $walks walks, $gestures gestures; $left_out walks left out"
  exit "$failed"
)

has_libfuzzer() {
  local program='extern "C" int LLVMFuzzerTestOneInput(const unsigned char*, unsigned long) { return 0; }'
  clang++ -x c++ -fsanitize=fuzzer -o /dev/null - <<<"$program" 2>/dev/null
}

# With libFuzzer, which looks for inputs that reach new code; without it the plain driver makes more inputs.
# sql_reading takes the inputs of sql.
long_fuzz() (
  need_native_packages
  if ! has_libfuzzer && [[ $(id -u) -eq 0 ]]; then need_packages clang libclang-rt-14-dev; fi
  local targets=(sql sql_reading query_editor database_file scenario conversions automation)
  local target inputs seed failed=0
  local seconds=$((${MINUTES:-25} * 60 / ${#targets[@]}))
  seed=$(seed_of_run)
  if ! has_libfuzzer; then
    say "without libFuzzer: the plain driver"
    build debug "${targets[@]/#/fuzz_}"
    for target in "${targets[@]}"; do
      inputs=${target%_reading}
      "build/debug/tests/fuzz/fuzz_$target" --seed "$seed" --inputs 500000 \
        --dictionary "tests/fuzz/dictionaries/$inputs.dict" "tests/fuzz/corpus/$inputs" || failed=1
    done
    exit "$failed"
  fi
  build fuzz "${targets[@]/#/fuzz_}"
  mkdir -p build/fuzz/found
  for target in "${targets[@]}"; do
    say "fuzz_$target, seed $seed"
    mkdir -p "build/fuzz/corpus/$target"
    inputs=${target%_reading}
    "build/fuzz/tests/fuzz/fuzz_$target" "build/fuzz/corpus/$target" "tests/fuzz/corpus/$inputs" \
      -dict="tests/fuzz/dictionaries/$inputs.dict" -seed="$((seed % 4294967295))" -max_total_time="$seconds" \
      -timeout=1 -rss_limit_mb=2000 -max_len=4096 -verbosity=0 -print_final_stats=1 \
      -artifact_prefix="build/fuzz/found/$target-" >"build/fuzz/$target.log" 2>&1 || failed=1
    grep -E 'ERROR|SUMMARY|^fuzz:|number_of_executed|Test unit written' "build/fuzz/$target.log" || true
  done
  exit "$failed"
)

long_faults() (
  need_native_packages
  build debug kebu_fault_tests
  local seed
  seed=$(seed_of_run)
  say "seed $seed"
  KEBU_FAULT_WALK=all KEBU_FAULT_SEED=$seed KEBU_FAULT_PAIRS=500 build/debug/tests/faults/kebu_fault_tests --gtest_brief
)

long_durability() (
  need_native_packages
  build debug durability_tests
  local seed
  seed=$(seed_of_run)
  say "seed $seed"
  KEBU_DURABILITY_SEED=$seed KEBU_KILLS=500 KEBU_FULL_DISKS=200 KEBU_DAMAGED_FILES=500 KEBU_PROCESS_PAIRS=100 \
    build/debug/tests/durability/durability_tests --gtest_brief
)

long_openings() (
  need_native_packages
  need_windows_packages
  build walk plugin_tests
  KEBU_OPENINGS=10000 build/walk/tests/plugin/plugin_tests --gtest_brief --gtest_filter='Openings.*' || exit 1
  build windows-x64
  source tools/wine.sh
  start_virtual_screen
  wine_limit=1700
  in_wine build/windows-x64/tests/windows/window_tests.exe --gtest_brief \
    'build\windows-x64\workbench\KEBU_ANAGKELMORIA.dll' 1000
)

# Besides the scenarios: the tests that open, close and lose windows.
long_heap() (
  need_native_packages
  need_windows_packages
  native_scenarios || exit 1
  build windows-x64-guarded
  local failed=0
  real_window_scenarios windows-x64-guarded || failed=1
  windows_preset=windows-x64-guarded
  source tools/wine.sh
  start_virtual_screen
  in_wine build/windows-x64-guarded/tests/windows/window_tests.exe --gtest_brief \
    'build\windows-x64-guarded\workbench\KEBU_ANAGKELMORIA.dll' 5 || failed=1
  exit "$failed"
)

long_x86() (
  need_native_packages
  need_windows_packages
  source tools/debian32.sh
  make_debian32
  native_scenarios || exit 1
  build windows-x86
  in_debian32 tools/check_x86
)

long_acceptance() (
  need_windows_packages
  build windows-x64
  source tools/wine.sh
  start_virtual_screen
  wine_limit=1700
  in_wine "$windows_workbench" verify --connection Provider=Workbench --report build/acceptance-report.txt --clean
)

long_package() (
  need_packages unzip x11-utils wine wine64 xvfb openbox
  tools/package
  source packaging/packages.sh
  source packaging/guide/guide.sh
  source tools/package_checks.sh
  local failed=0
  installers_check || failed=1
  zip_check || failed=1
  reproducibility_check || failed=1
  exit "$failed"
)

long_bench() { bench/run; }

# long_tests [NAME]: lists the parts, or runs one of them.
long_tests() {
  local part start=$SECONDS
  if [[ $# -eq 0 ]]; then
    for part in "${long_parts[@]}"; do printf '  %-10s %s\n' "${part%%|*}" "${part#*|}"; done
    return
  fi
  [[ $# -eq 1 ]] || fail "use: ./test long [NAME]"
  for part in "${long_parts[@]}"; do
    [[ ${part%%|*} == "$1" ]] || continue
    say "${part#*|}"
    if "long_$1"; then
      say "passed  $1 ($((SECONDS - start)) s)"
      return
    fi
    say "FAILED  $1 ($((SECONDS - start)) s)"
    exit 1
  done
  fail "no long part is called $1 (./test long lists them)"
}
