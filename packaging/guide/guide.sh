# Makes the user guide of docs/guida/, as pages for the browser and as one PDF: sourced, after
# tools/setup.sh and the build windows-x64. Its pictures are taken of the real window, its numbers are read
# from the demo company, both with the workbench under Wine.

need_guide_packages() {
  need_packages pandoc weasyprint fonts-dejavu-core faketime locales wine wine64 xvfb
}

guide_pages=(index installazione primo-collegamento pagina-{1,2,3,6,7,8,9,10,11,12} riepilogo esempi messaggi tasti diritti problemi)

# Numbers as Italians write them, without needless zeros; columns become those of a table.
italian_rows() {
  sed -E -e 's/([0-9])\.([0-9]+)/\1,\2/g' -e 's/(,[0-9]*[1-9])0+\b/\1/g' -e 's/,0+\b//g' -e 's/\t/ | /g'
}

# A Wine for the pictures, so that they are the same whenever and wherever they are taken: Italian, with the
# system's own window frames, a caret that does not blink, and a clock that stands still at the package's
# time. Waiting takes as long as ever.
prepare_wine_for_pictures() {
  local work=build/guide-tools time
  time=$(date -u -d "@$(package_time)" '+%F %T')
  mkdir -p "$work/locale" "$work/fonts"
  [[ -d $work/locale/it_IT.UTF-8 ]] || localedef -i it_IT -f UTF-8 "$work/locale/it_IT.UTF-8"
  # The font with the signs on a frame's buttons. The package is not installed: its other fonts would
  # change how Wine draws all texts.
  if [[ ! -f $work/fonts/usr/share/wine/fonts/marlett.ttf ]]; then
    (cd "$work" && { apt-get -qq download fonts-wine || { apt-get -qq update && apt-get -qq download fonts-wine; }; } &&
      dpkg-deb -x fonts-wine_*.deb fonts) ||
      fail "the package fonts-wine cannot be fetched"
  fi
  unset "${!LC_@}"
  export WINEPREFIX=$PWD/$work/wine LOCPATH=$PWD/$work/locale LANG=it_IT.UTF-8
  # shellcheck disable=SC2016 # the dynamic linker replaces $LIB
  export TZ=UTC FAKETIME=$time FAKETIME_DONT_FAKE_MONOTONIC=1 LD_PRELOAD='/usr/$LIB/faketime/libfaketime.so.1'
  in_wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f >/dev/null
  in_wine reg add 'HKCU\Control Panel\Desktop' /v CursorBlinkRate /d -1 /f >/dev/null
  cp "$work/fonts/usr/share/wine/fonts/marlett.ttf" "$WINEPREFIX/drive_c/windows/Fonts"
}

# play_for_pictures SCENARIO OPTION...
play_for_pictures() {
  in_wine "$windows_workbench" play "$@" --pictures build/guide/pictures >build/guide/pictures.log 2>&1 ||
    { tail -n 5 build/guide/pictures.log; fail "the guide's pictures cannot be taken"; }
}

# fill_in FILE: the page with each {{statement}} replaced by its rows on the demo company. Rows that are a
# line of their own become rows of a table.
fill_in() {
  local line statement rows
  while IFS= read -r line; do
    while [[ $line =~ \{\{([^}]*)\}\} ]]; do
      statement=${BASH_REMATCH[1]}
      rows=$(in_wine "$windows_workbench" sql -e "$statement" | tail -n +2 | italian_rows)
      [[ -n $rows ]] || fail "$1: no rows for $statement"
      [[ $line != "{{$statement}}" ]] || rows=$(sed -e 's/^/| /' -e 's/$/ |/' <<<"$rows")
      line=${line/"{{$statement}}"/$rows}
    done
    printf '%s\n' "$line"
  done <"$1" | sed "s/@VERSION@/$(project_version)/g"
}

# make_guide OUTPUT: fills the folder with pages, pictures, style and guida.pdf.
make_guide() (
  local output=$1 work=build/guide page format=markdown-smart-implicit_figures navigation=
  windows_preset=windows-x64
  source tools/wine.sh
  start_virtual_screen bare
  rm -rf "$work"
  mkdir -p "$work/pictures" "$output"
  prepare_wine_for_pictures
  play_for_pictures workbench/scenarios/pagine.scenario
  play_for_pictures packaging/guide/finestre.scenario --company 2
  local picture
  for picture in "$work"/pictures/*.png; do
    # pagina-3-depositi.png is the picture of pagina-3.
    page=$(basename "$picture" | sed -E -e 's/\.png$//' -e 's/^(pagina-[0-9]+)-.*/\1/')
    cp "$picture" "$output/$page.png"
  done
  for picture in $(grep -h -o '!\[[^]]*\]([^)]*)' docs/guida/*.md | sed -E 's/.*\((.*)\)/\1/'); do
    [[ -f $output/$picture ]] || fail "the guide shows $picture, which was not taken"
  done
  cp packaging/guide/guida.css "$output"
  for page in "${guide_pages[@]}"; do
    fill_in "docs/guida/$page.md" >"$work/$page.md"
    navigation+="- [$(sed -n '1s/^# //p' "docs/guida/$page.md")]($page.html)"$'\n'
  done
  navigation=$(pandoc -f "$format" -t html5 <<<"$navigation")
  for page in "${guide_pages[@]}"; do
    pandoc -f "$format" -t html5 --template packaging/guide/page.html \
      -V "navigation=$navigation" -V "version=$(project_version)" \
      -M "pagetitle=$(sed -n '1s/^# //p' "$work/$page.md")" "$work/$page.md" |
      sed -E 's/(href="[a-z0-9-]+)\.md/\1.html/g' >"$output/$page.html"
  done
  # In the one document all pages are chapters, and links go to them. Pictures and style stand in it, since
  # weasyprint names a picture by its path.
  for page in "${guide_pages[@]}"; do
    printf '\n'
    sed -E -e "1s/\$/ {#capitolo-$page}/" -e 's/\]\(([a-z0-9-]+)\.md(#[^)]*)?\)/](#capitolo-\1)/g' "$work/$page.md"
  done | pandoc -f "$format" -t html5 --template packaging/guide/page.html -V navigation= \
    -V "version=$(project_version)" -M "pagetitle=Guida" --self-contained --resource-path "$output" - >"$work/all.html"
  SOURCE_DATE_EPOCH=$(package_time) weasyprint -q "$work/all.html" "$output/guida.pdf"
)
