# What is checked of the packages, under Wine: sourced, after setup.sh and packaging/packages.sh.
#
# Wine here runs 64-bit programs only. The 32-bit installer is therefore installed beside the other one, but
# its class is not created; its tables are compared with the 64-bit installer's.

# Keys and values of the registry, one a line, without what Windows and Wine do differently: Windows has one
# list of type libraries and program identifiers for 32 and 64 bits, and always has the keys above them;
# Wine's installer service leaves its own empty keys.
registry_rows() {
  local key
  for key in 'HKLM\Software\Classes' 'HKCU\Software\Classes' 'HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall' \
      'HKLM\Software\Microsoft\Windows\CurrentVersion\Installer'; do
    in_wine reg export "$key" 'C:\rows.reg' /y >/dev/null 2>&1 || continue
    iconv -f UTF-16 -t UTF-8 "$WINEPREFIX/drive_c/rows.reg" | tr -d '\r' |
      awk '/^\[/ { key = $0; print key; next } NF && key { print key " " $0 }'
    rm "$WINEPREFIX/drive_c/rows.reg"
  done | grep -v -i -E -e 'Wow6432Node.(TypeLib|KEBU_ANAGKELMORIA)' -e 'Wow6432Node.CLSID\]$' \
    -e 'HKEY_CURRENT_USER.Software.Classes(.(CLSID|Interface|Typelib))?\]$' |
    grep -v -E '\\Installer(\\(Features|Products|UpgradeCodes|UserData(\\S-1-5-18(\\(Components|Products))?)?))?\]$' |
    LC_ALL=C sort
}

# What is installed, one a line: registry and files.
installed_state() {
  { registry_rows
    (cd "$WINEPREFIX/drive_c" && find 'Program Files' 'Program Files (x86)' windows/Installer -mindepth 1 \
      2>/dev/null || true)
  } | LC_ALL=C sort
}

# plugin_rows BEFORE AFTER: what was added to the classes. The installer ends the help's folder with a
# backslash, the type library's registration does not.
plugin_rows() {
  LC_ALL=C comm -13 "$1" "$2" | grep -F '\Software\Classes\' | grep -v -F '\Classes\Installer\' |
    sed -E '/HELPDIR/s/\\\\"$/"/'
}

# expect TITLE COMMAND...
expect() {
  local title=$1
  shift
  "$@" && return
  printf 'not so: %s\n' "$title"
  package_failed=1
}

# expect_same TITLE FILE FILE
expect_same() {
  cmp -s "$2" "$3" && return
  printf 'not so: %s\n' "$1"
  diff "$2" "$3" | head -n 20 || true
  package_failed=1
}

installer() { in_wine msiexec "$@" /qn; }
refused() { ! "$@"; }
has_version() { [[ $(registry_rows | sed -n 's/.*\\Uninstall\\.*"DisplayVersion"="\(.*\)"/\1/p') == "$1" ]]; }
has_lines() { [[ $(wc -l <"$1") -ge $2 ]]; }
creates_class() { [[ $(in_wine cscript //nologo 'C:\create.vbs' | tr -d '\r') == "$1" ]]; }

# The tables of an installer that must be alike in both widths. Interfaces64 is in one of them only.
width_tables() {
  local table
  for table in Registry Component FeatureComponents Upgrade LaunchCondition Property InstallExecuteSequence; do
    msiinfo export "$1" "$table" | tr -d '\r' | grep -v -e Interfaces64 -e '^ProductCode' -e '^UpgradeCode' |
      sed -E -e 's/win(32|64)$/win/;s/\\win(32|64)\t/\\win\t/' -e 's/^reg[0-9A-F]{32}\t//' \
        -e 's/^\{5B0E9F0C[-0-9A-F]*\}//' -e 's/\treg[0-9A-F]{32}$//'
  done |
    # The component's own code, and that its component is for 64 bits (256).
    sed -E -e '/^(Plugin|Guide)\t/s/\{[-0-9A-F]*\}//' -e 's/\t256\t/\t0\t/;s/\t260\t/\t4\t/' | LC_ALL=C sort
}

installers_check() (
  windows_preset=windows-x64
  source tools/wine.sh
  export WINEPREFIX=$PWD/build/wine-package
  local folder=build/package-checks stage version dll guide places
  version=$(project_version)
  stage=build/package/KEBU_ANAGKELMORIA-$version
  dll=$stage/x64/KEBU_ANAGKELMORIA.dll
  guide=$stage/guida
  package_failed=0
  rm -rf "$folder" "$WINEPREFIX"
  mkdir -p "$folder"
  start_virtual_screen
  cp "out/KEBU_ANAGKELMORIA-$version-x64.msi" "$folder/now.msi"
  make_msi x64 0.9.9 "$dll" "$guide" "$folder/older.msi"
  make_msi x64 99.0.0 "$dll" "$guide" "$folder/newer.msi"
  cp "out/KEBU_ANAGKELMORIA-$version-x86.msi" "$folder/x86.msi"

  # Once, since the script host registers types of its own.
  printf '%s\r\n' 'On Error Resume Next' 'Set made = CreateObject("KEBU_ANAGKELMORIA.CLSKB_ANAGKELMORIA")' \
    'If Err.Number Then WScript.Echo "none" Else WScript.Echo TypeName(made)' >"$folder/create.vbs"
  in_wine wineboot -i
  cp "$folder/create.vbs" "$WINEPREFIX/drive_c/create.vbs"
  expect "without an installation there is no class" creates_class none
  installed_state >"$folder/before"

  expect "an older version is installed" installer /i "$folder/older.msi"
  expect "its version is listed" has_version 0.9.9
  expect "this version is installed over it" installer /i "$folder/now.msi"
  expect "only this version is listed" has_version "$version"
  expect "the class is created" creates_class Cinterface
  installed_state >"$folder/installed"
  plugin_rows "$folder/before" "$folder/installed" >"$folder/by_installer"

  expect "an older version is refused" refused installer /i "$folder/older.msi"
  expect "this version is still listed" has_version "$version"
  installed_state >"$folder/after_refusal"
  expect_same "a refusal changes nothing" "$folder/installed" "$folder/after_refusal"

  expect "the 32-bit version is installed beside it" installer /i "$folder/x86.msi"
  expect "the 32-bit version is removed" installer /x "$folder/x86.msi"
  # The help's folder is the one that was written last.
  installed_state | sed '/HELPDIR/s/Program Files (x86)/Program Files/' >"$folder/after_x86"
  expect_same "the 32-bit version leaves the 64-bit one whole" "$folder/installed" "$folder/after_x86"

  expect "a newer version is installed" installer /i "$folder/newer.msi"
  expect "it is removed" installer /x "$folder/newer.msi"
  installed_state >"$folder/after"
  expect_same "nothing is left" "$folder/before" "$folder/after"

  # The same DLL at the same place, registered by its own entry point.
  places="$WINEPREFIX/drive_c/Program Files/KEBU_ANAGKELMORIA"
  mkdir "$places"
  cp "$dll" "$places"
  in_wine regsvr32 /s 'C:\Program Files\KEBU_ANAGKELMORIA\KEBU_ANAGKELMORIA.dll'
  installed_state >"$folder/registered"
  plugin_rows "$folder/before" "$folder/registered" >"$folder/by_dll"
  expect "the DLL registers itself" has_lines "$folder/by_dll" 60
  expect_same "installer and DLL write the same rows" "$folder/by_dll" "$folder/by_installer"
  in_wine regsvr32 /u /s 'C:\Program Files\KEBU_ANAGKELMORIA\KEBU_ANAGKELMORIA.dll'
  rm -r "$places"

  width_tables "$folder/now.msi" >"$folder/tables_x64"
  width_tables "$folder/x86.msi" >"$folder/tables_x86"
  expect "the installer has tables" has_lines "$folder/tables_x64" 60
  expect_same "the 32-bit installer says the same" "$folder/tables_x64" "$folder/tables_x86"
  exit "$package_failed"
)

# The zip, unpacked in a folder with a blank.
zip_check() (
  windows_preset=windows-x64
  source tools/wine.sh
  export WINEPREFIX=$PWD/build/wine-package
  local folder=build/package-checks version home
  version=$(project_version)
  package_failed=0
  start_virtual_screen
  home="$WINEPREFIX/drive_c/Prova zip"
  rm -rf "$home"
  unzip -q "out/KEBU_ANAGKELMORIA-$version.zip" -d "$home"
  home="$home/KEBU_ANAGKELMORIA-$version"
  opens_window() {
    # The command starts the program in a console of its own, as a double click does.
    (cd "$home/x64" && in_wine cmd /c start workbench.exe) &
    for _ in {1..60}; do
      xwininfo -root -tree | grep 'Parametri collegamento con E-Commerce Merkal' >/dev/null && return
      sleep 1
    done
    return 1
  }
  expect "a double click opens the window" opens_window
  wineserver -k
  says_version() { [[ $(in_wine "$home/x64/workbench.exe" --version) == "workbench $version" ]]; }
  expect "the program says its version" says_version
  registry_rows >"$folder/zip_before"
  # Without a 32-bit Wine the script can register one of the two DLLs only, and must say so.
  in_wine cmd /c "C:\\Prova zip\\KEBU_ANAGKELMORIA-$version\\registra.cmd" /utente >"$folder/register.txt" 2>&1 || true
  expect "the script says that a DLL could not be registered" grep -q 'registrazione non riuscita' "$folder/register.txt"
  # Wine's programs do not look among the user's own classes, Windows' do.
  has_user_class() { registry_rows | grep 'HKEY_CURRENT_USER.*InprocServer32\] @="C:.*x64..KEBU_ANAGKELMORIA.dll"' >/dev/null; }
  expect "the class is registered for the user" has_user_class
  in_wine cmd /c "C:\\Prova zip\\KEBU_ANAGKELMORIA-$version\\rimuovi.cmd" /utente >"$folder/unregister.txt" 2>&1 || true
  registry_rows >"$folder/zip_after"
  expect_same "the registration leaves nothing" "$folder/zip_before" "$folder/zip_after"
  rm -rf "$WINEPREFIX/drive_c/Prova zip"
  exit "$package_failed"
)

# The same sources in another folder must give the same packages.
reproducibility_check() (
  local again=build/package-again file failed=0
  rm -rf "$again"
  mkdir -p "$again/build"
  git ls-files -z -c -o --exclude-standard | xargs -0 cp --parents -t "$again"
  [[ ! -d build/sqlite ]] || cp -r build/sqlite "$again/build"
  SOURCE_DATE_EPOCH=$(package_time) "$again/tools/package" >build/package-again.log 2>&1 ||
    { tail -n 20 build/package-again.log; exit 1; }
  for file in out/KEBU_ANAGKELMORIA-*; do
    cmp "$file" "$again/$file" || failed=1
  done
  exit "$failed"
)
