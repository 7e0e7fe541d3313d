# Makes the user guide of docs/guida/, as pages for the browser and as one PDF: sourced, after
# tools/setup.sh and the build windows-x64. Its pictures are taken of the real window, its numbers are read
# from the demo company, both with the workbench under Wine.

need_guide_packages() { need_packages pandoc weasyprint fonts-dejavu-core wine wine64 xvfb openbox; }

guide_pages=(index installazione primo-collegamento pagina-{1,2,3,6,7,8,9,10,11,12} riepilogo esempi messaggi tasti diritti problemi)

# Numbers as Italians write them, without needless zeros; columns become those of a table.
italian_rows() {
  sed -E -e 's/([0-9])\.([0-9]+)/\1,\2/g' -e 's/(,[0-9]*[1-9])0+\b/\1/g' -e 's/,0+\b//g' -e 's/\t/ | /g'
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
  start_virtual_screen
  rm -rf "$work"
  mkdir -p "$work/pictures" "$output"
  in_wine "$windows_workbench" play workbench/scenarios/pagine.scenario --pictures "$work/pictures" \
    >"$work/pictures.log" 2>&1 || { tail -n 5 "$work/pictures.log"; fail "the guide's pictures cannot be taken"; }
  local picture
  for picture in "$work"/pictures/pagina-*.png; do
    # pagina-3-depositi.png is the picture of pagina-3.
    page=$(basename "$picture" | sed -E -e 's/\.png$//' -e 's/^(pagina-[0-9]+)-.*/\1/')
    cp "$picture" "$output/$page.png"
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
  # In the one document all pages are chapters, and links go to them.
  for page in "${guide_pages[@]}"; do
    printf '\n'
    sed -E -e "1s/\$/ {#capitolo-$page}/" -e 's/\]\(([a-z0-9-]+)\.md(#[^)]*)?\)/](#capitolo-\1)/g' "$work/$page.md"
  done | pandoc -f "$format" -t html5 --template packaging/guide/page.html -V navigation= \
    -V "version=$(project_version)" -M "pagetitle=Guida" - >"$output/all.html"
  SOURCE_DATE_EPOCH=$(package_time) weasyprint -q "$output/all.html" "$output/guida.pdf"
  rm "$output/all.html"
)
