# shellcheck shell=bash
# The Debian package and the source release. Sourced by ./dev.

# have_package_tools PACKAGE...: installs them where that can be done, and tells which tools are missing.
have_package_tools() {
  ensure_packages "$@" || return 1
  local tool missing=()
  for tool in cpack dpkg-shlibdeps gzip rsvg-convert desktop-file-validate appstreamcli lintian; do
    command -v "$tool" >/dev/null || missing+=("$tool")
  done
  [ ${#missing[@]} -eq 0 ] || say "The package needs what is not here: ${missing[*]}"
  [ ${#missing[@]} -eq 0 ]
}

# make_package: leaves quillmark-console_VERSION_ARCHITECTURE.deb in build/package. The times in it
# are those of the last commit, so that two builds of one commit are the same to the byte.
make_package() {
  SOURCE_DATE_EPOCH=$(source_time)
  export SOURCE_DATE_EPOCH
  rm -f build/package/*.deb
  build package quillmark-console quillmark quillmark-radio
  cmake --build --preset package --target icon_sizes manual compress_changelog \
    compress_quillmark-console.1 compress_quillmark.1 compress_quillmark-radio.1 >&2
  (umask 022 && cd build/package && cpack -G DEB >cpack.log 2>&1) || {
    cat build/package/cpack.log >&2
    return 1
  }
  ls build/package/*.deb
}

# check_package: what Debian's own tools say of it. Fails on an error or a warning.
check_package() {
  local failed=0
  desktop-file-validate packaging/quillmark-console.desktop || failed=1
  appstreamcli validate --no-net packaging/quillmark-console.metainfo.xml || failed=1
  lintian --allow-root --fail-on error,warning build/package/*.deb || failed=1
  return $failed
}

# make_release: one tarball of the committed sources, which builds without git.
make_release() {
  local version name
  version=$(sed -n 's/^project(quillmark VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
  name=quillmark-console-$version
  mkdir -p build
  git archive --format=tar --prefix="$name/" HEAD | gzip -9 -n >"build/$name.tar.gz"
  say "build/$name.tar.gz"
}

# source_time: of the last commit, in seconds since 1970; without git that of the newest source.
source_time() {
  git log -1 --format=%ct 2>/dev/null ||
    find src -type f -printf '%Ts\n' | sort -n | tail -n 1
}
