# shellcheck shell=bash
# The Debian package on a bare Debian 12 in a folder. Sourced by ./dev.

bareFolder=build/bare

# in_bare COMMAND...: as root of the bare system.
in_bare() { chroot "$bareFolder" env DEBIAN_FRONTEND=noninteractive "$@"; }
# as_user SCRIPT: as a user of it, who has a home folder.
as_user() { chroot "$bareFolder" su - visitor -c "$1"; }

# try_on_bare_debian: an older version, an upgrade over it, a session of each program, and a purge.
try_on_bare_debian() {
  [ "$(id -u)" = 0 ] || { say "A system in a folder needs root"; return 1; }
  ensure_packages debootstrap
  trap leave_bare EXIT
  make_bare
  local new old
  new=$(echo build/package/quillmark-console_*.deb)
  (umask 022 && cd build/package && cpack -G DEB -D CPACK_PACKAGE_VERSION=0.0.1 -B older >older.log)
  old=$(echo build/package/older/quillmark-console_0.0.1_*.deb)
  cp "$new" "$bareFolder/tmp/new.deb"
  cp "$old" "$bareFolder/tmp/old.deb"
  bare_files >build/bare.before
  install_bare old
  try_session
  as_user 'echo mine >.local/share/quillmark-console/NewRadio.txt'
  user_files >build/bare.user
  install_bare new
  try_session
  user_files | diff build/bare.user - || { say "The upgrade touched a user's file"; return 1; }
  in_bare apt-get purge -qq -y quillmark-console >/dev/null 2>&1
  bare_files | diff build/bare.before - || { say "The purge left something"; return 1; }
  user_files | diff build/bare.user - || { say "The purge touched a user's file"; return 1; }
  say "Installed, upgraded and purged on a bare Debian"
}

make_bare() {
  if [ ! -e "$bareFolder/etc/debian_version" ]; then
    say "Making a bare Debian in $bareFolder"
    debootstrap --variant=minbase bookworm "$bareFolder" >build/bare.log 2>&1 || {
      tail -n 5 build/bare.log >&2
      return 1
    }
    in_bare useradd --create-home --home-dir /visitor visitor
  fi
  cp /etc/resolv.conf "$bareFolder/etc/"
  mountpoint -q "$bareFolder/dev/pts" || mount -t devpts devpts "$bareFolder/dev/pts"
  in_bare apt-get update -qq
  in_bare apt-get purge -qq -y quillmark-console >/dev/null 2>&1 || true
  # What the package stands on stays when it goes, so it must be there before files are counted.
  install_bare_dependencies
  rm -rf "$bareFolder"/visitor/.[a-z]*
}

install_bare_dependencies() {
  cp build/package/quillmark-console_*.deb "$bareFolder/tmp/new.deb"
  install_bare new
  in_bare apt-get purge -qq -y quillmark-console >/dev/null 2>&1
}

leave_bare() { umount "$bareFolder/dev/pts" 2>/dev/null || true; }

# install_bare NAME: the package of that name, with apt's resolver.
install_bare() {
  in_bare apt-get install -qq -y --no-install-recommends "/tmp/$1.deb" >build/bare.log 2>&1 || {
    tail -n 20 build/bare.log >&2
    return 1
  }
  say "Installed: $(in_bare dpkg-query -W quillmark-console)"
}

# try_session: both programs as a user starts them. The console reads the radio and ends by a signal.
try_session() {
  as_user 'set -e; for program in quillmark-console quillmark-radio; do
             $program --version; $program --help >/dev/null; done'
  as_user 'mkdir -p .local/share/quillmark-console
           export QT_QPA_PLATFORM=offscreen
           quillmark-radio --link ~/radio --log ~/lines.log >/dev/null & radio=$!
           sleep 1
           timeout --preserve-status 20 quillmark-console --port ~/radio 2>console.log
           code=$?
           kill $radio
           [ $code = 0 ] || { cat console.log; exit 1; }
           grep -q options lines.log || { echo "The console did not read the radio"; exit 1; }
           rm -f radio console.log lines.log'
}

# The files of the system, but for those that apt and dpkg keep for themselves.
bare_files() {
  (cd "$bareFolder" && find . -xdev -type d \( -path ./proc -o -path ./sys -o -path ./dev -o \
    -path ./tmp -o -path ./run -o -path ./visitor -o -path ./var/cache -o -path ./var/log -o \
    -path ./var/lib/apt -o -path ./var/lib/dpkg \) -prune -o -print | sort)
}

user_files() { (cd "$bareFolder/visitor" && find . -type f -print0 | sort -z | xargs -0 sha256sum); }
