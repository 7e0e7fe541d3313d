# Rows for a person to read: sourced. Input is what `workbench sql` prints, fields between tabs and a
# first line with their names. Not column(1): a bare system has none, and it counts bytes.

# Reads the input into the array `cells`, row by row, and sets `columns` and `rows`.
read_cells() {
  local line fields
  cells=() columns=0 rows=0
  while IFS= read -r line; do
    line=${line%$'\r'}
    # Not read -a: tabs are blanks to it, and an empty field between two of them would be lost.
    fields=()
    while [[ $line == *$'\t'* ]]; do
      fields+=("${line%%$'\t'*}")
      line=${line#*$'\t'}
    done
    fields+=("$line")
    ((columns > 0)) || columns=${#fields[@]}
    cells+=("${fields[@]}")
    rows=$((rows + 1))
  done
}

no_rows() {
  ((rows > 1)) && return 1
  printf '  (no rows)\n'
}

# print_padded TEXT WIDTH: counts characters, which printf does not.
print_padded() { printf '%s%*s' "$1" $(($2 - ${#1})) ''; }

# One line a row, columns aligned. A beginning that all names share, GM57_, is left to the title.
show_table() {
  local cells columns rows row column width widths=() line prefix shared=1
  read_cells
  no_rows && return
  prefix=${cells[0]%%_*}_
  for ((column = 0; column < columns; column++)); do
    [[ ${cells[column]} == "$prefix"?* ]] || shared=0
  done
  if ((shared)); then
    for ((column = 0; column < columns; column++)); do cells[column]=${cells[column]#"$prefix"}; done
  fi
  for ((column = 0; column < columns; column++)); do
    width=0
    for ((row = 0; row < rows; row++)); do
      line=${cells[row * columns + column]}
      ((${#line} <= width)) || width=${#line}
    done
    widths+=("$width")
  done
  for ((row = 0; row < rows; row++)); do
    line=
    for ((column = 0; column < columns; column++)); do
      line+="  $(print_padded "${cells[row * columns + column]}" "${widths[column]}")"
    done
    printf '%s\n' "${line%"${line##*[! ]}"}"
  done
}

# One line a field: for tables that are wider than a screen.
show_fields() {
  local cells columns rows row column name width=0
  read_cells
  no_rows && return
  for name in "${cells[@]:0:columns}"; do ((${#name} <= width)) || width=${#name}; done
  for ((row = 1; row < rows; row++)); do
    ((row == 1)) || printf '\n'
    for ((column = 0; column < columns; column++)); do
      printf '  %s  %s\n' "$(print_padded "${cells[column]}" "$width")" "${cells[row * columns + column]}"
    done
  done
}
