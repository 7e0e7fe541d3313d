# Prints the output of `workbench sql` as aligned tables: sourced. The input has tabs between fields and
# the names in its first line. column(1) is not always installed, and counts bytes.

# Reads the input into the array `cells`, row by row, and sets `columns` and `rows`.
read_cells() {
  local line fields
  cells=() columns=0 rows=0
  while IFS= read -r line; do
    line=${line%$'\r'}
    # read -a would lose empty fields, since it takes several tabs for one separator.
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

# print_padded TEXT WIDTH: pads to a number of characters; printf counts bytes.
print_padded() { printf '%s%*s' "$1" $(($2 - ${#1})) ''; }

# One line for each row. A prefix that all names share, such as GM57_, is left out.
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

# One line for each field, for tables that are wider than a screen.
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
