# A 32-bit Debian in a folder, for the programs of the preset windows-x86: sourced, after setup.sh. The
# 32-bit Wine cannot be installed beside the 64-bit one without changing the machine.

debian32=build/debian32

# Makes it, unless it is there.
make_debian32() {
  [[ ! -e $debian32/complete ]] || return 0
  [[ $(id -u) -eq 0 ]] || fail "a 32-bit Debian is made and entered by root only"
  need_packages debootstrap
  local codename mirror log=build/debian32.log
  codename=$(. /etc/os-release && printf '%s' "${VERSION_CODENAME:-}")
  # The packages come from where the machine's own come from.
  mirror=$(apt-get indextargets --format '$(REPO_URI)' 'Created-By: Packages' "Codename: $codename" |
    head -n 1)
  [[ -n $mirror ]] || fail "apt has no source for Debian $codename, of which a 32-bit one could be made"
  say "Making a 32-bit Debian in $debian32, once: 1.2 GB, some minutes"
  rm -rf "$debian32"
  mkdir -p "$debian32"
  # What debootstrap mounts ends with the namespace.
  unshare --mount debootstrap --arch=i386 --variant=minbase --include=wine,wine32,xvfb,openbox \
    "$codename" "$PWD/$debian32" "$mirror" >"$log" 2>&1 ||
    fail "debootstrap failed, see $log: $(grep '^[EW]: ' "$log" | tail -n 1 || tail -n 1 "$log")"
  rm -rf "$debian32"/var/cache/apt/archives/*.deb "$debian32"/var/lib/apt/lists/*
  mkdir -p "$debian32/project"
  touch "$debian32/complete"
}

# in_debian32 COMMAND...: runs a command of the project in it. Mounts and processes end with the command.
in_debian32() {
  unshare --mount --pid --fork --kill-child bash -c '
    mount -t proc proc "$0/proc" && mount --bind "$PWD" "$0/project" &&
      exec chroot "$0" env -i -C /project PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root "$@"
  ' "$PWD/$debian32" "$@"
}
