# Makes the packages: sourced, after tools/setup.sh. tools/package makes what is delivered, ./test long
# package also other versions of it.

need_packaging_packages() {
  need_packages cmake ninja-build g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix mingw-w64-tools \
    libwine-dev git faketime wixl msitools zip uuid-runtime
  need_node
}

project_version() { sed -n 's/^project(.* VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt; }

# The only time that packages hold: the last commit's, in seconds since 1970.
package_time() { printf '%s' "${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct)}"; }

# An identifier that is always the same for the same text.
identifier_of() {
  uuidgen --sha1 --namespace 3f1c6f0e-58b5-4c0b-9d1a-6f0c8c1f5d11 --name "$1" | tr '[:lower:]' '[:upper:]'
}

# make_zip FOLDER OUTPUT: the folder itself is in the archive. Names are sorted and times fixed.
make_zip() {
  local folder=$1 output
  output=$(realpath -m "$2")
  rm -f "$output"
  find "$folder" -exec touch -h -d "@$(package_time)" {} +
  (cd "$(dirname "$folder")" && find "$(basename "$folder")" -type f | sort |
    TZ=UTC zip -q -X -9 "$output" -@)
}

# Lists the files of the user guide for the installer. The first one is the component's key path.
guide_files() {
  local file name number=0 key=' KeyPath="yes"'
  printf '<?xml version="1.0" encoding="utf-8"?>\n<Include>\n'
  for file in "$1"/*; do
    name=$(basename "$file")
    number=$((number + 1))
    # Windows Installer wants a name in the old 8.3 form beside each long one.
    printf '  <File Id="guide_%s" Name="%s|%s" Source="%s"%s/>\n' "${name//-/_}" \
      "$(printf 'GUIDA%03d.%.3s' "$number" "${name##*.}")" "$name" "$file" "$key"
    key=
  done
  printf '</Include>\n'
}

# make_msi WIDTH VERSION DLL GUIDE OUTPUT: the installer of a width, x64 or x86, with a DLL and the folder
# of the user guide. Paths are below the project's root.
make_msi() {
  local width=$1 version=$2 dll=$3 guide=$4 output=$5 parts=build/package/msi-$1 code
  mkdir -p "$parts"
  guide_files "$guide" >"$parts/guide.wxi"
  # Two installers that differ must not have the same package code.
  code=$(identifier_of "package $version $width $(cat packaging/msi/* "$parts/guide.wxi" "$dll" "$guide"/* | sha256sum)")
  rm -f "$output"
  # The cabinet holds the times of the files.
  touch -d "@$(package_time)" "$dll" "$guide"/*
  NO_FAKE_STAT=1 TZ=UTC faketime -f "$(TZ=UTC date -d "@$(package_time)" '+%F %T')" \
    wixl -a "$width" -I packaging/msi -I "$parts" \
    -D "Version=$version" -D "ProductCode=$(identifier_of "product $version $width")" -D "Dll=$dll" \
    -D Icon=src/windows/views/window/window.ico -D "x64=$([[ $width == x64 ]] && echo 1 || echo 0)" \
    -o "$output" packaging/msi/kebu_anagkelmoria.wxs
  # wixl leaves out that the DLL has a version, makes a random package code and says English.
  local template=x64
  [[ $width == x64 ]] || template=Intel
  faketime -f "$(TZ=UTC date -d "@$(package_time)" '+%F %T')" msibuild "$output" \
    -q "UPDATE \`File\` SET \`Version\` = '$version.0', \`Language\` = '1040' WHERE \`File\` = 'KEBU_ANAGKELMORIA.dll'" \
    -s "KEBU_ANAGKELMORIA $version" KEBU_ANAGKELMORIA "$template;1040" "{$code}"
}

with_windows_line_ends() { sed 's/$/\r/' "$1" >"$2"; }

# make_packages OUTPUT: zip, installers, symbols and checksums of the builds windows-x64 and windows-x86.
make_packages() {
  local output=$1 version name stage width file
  version=$(project_version)
  name=KEBU_ANAGKELMORIA-$version
  stage=build/package/$name
  rm -rf build/package
  mkdir -p "$output" "$stage/guida" "build/package/$name-symbols"
  rm -f "$output"/KEBU_ANAGKELMORIA-*
  make_guide "$stage/guida"
  cp CHANGELOG.md "$stage"
  for file in registra.cmd rimuovi.cmd; do with_windows_line_ends "packaging/zip/$file" "$stage/$file"; done
  sed "s/@VERSION@/$version/" packaging/zip/LEGGIMI.txt >build/package/readme.txt
  with_windows_line_ends build/package/readme.txt "$stage/LEGGIMI.txt"
  for width in x64 x86; do
    mkdir -p "$stage/$width" "build/package/$name-symbols/$width"
    for file in KEBU_ANAGKELMORIA.dll workbench.exe; do
      cp "build/windows-$width/workbench/$file" "$stage/$width"
      cp "build/windows-$width/workbench/$file.debug" "build/package/$name-symbols/$width"
    done
    make_msi "$width" "$version" "$stage/$width/KEBU_ANAGKELMORIA.dll" "$stage/guida" "$output/$name-$width.msi"
  done
  cp -r build/windows-x64/workbench/verify "$stage/x64"
  make_zip "$stage" "$output/$name.zip"
  make_zip "build/package/$name-symbols" "$output/$name-symbols.zip"
  (cd "$output" && sha256sum "$name"* >"$name.sha256")
}
