#!/usr/bin/env bash
# Builds the libraries for Windows that Debian has only as source:
#
#   libraries.sh FOLDER JOBS [window]
#
# They are installed in FOLDER, with sources and objects in FOLDER/work. Existing libraries are
# kept. The libraries of the window take half an hour and are built only on request.
set -euo pipefail

folder=$1
jobs=$2
work=$folder/work
toolchain=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/mingw.cmake
mkdir -p "$work"

# Downloads the newest available source of a Debian package and unpacks it in the current folder. A
# mirror may list a version that it does not have; then an older version is used.
fetch_source() { # name, apt option...
  local name=$1 version
  shift
  for version in $(apt-cache "$@" showsrc --only-source "$name" | sed -n 's/^Version: //p' | sort -ruV); do
    if apt-get "$@" source "$name=$version"; then
      echo "Source of $name: version $version"
      return
    fi
  done
  echo "No source of $name is available" >&2
  return 1
}

# Unpacks the source of a Debian package into $work/NAME. It uses its own list of sources, because
# the system's list may lack source packages and must not be changed.
unpack_source() { # name
  local apt=$work/apt
  mkdir -p "$apt/lists/partial"
  apt-get indextargets --format "deb-src \$(SITE) \$(RELEASE) \$(COMPONENT)" 'Created-By: Packages' |
    sort -u >"$apt/sources.list"
  local options=(-q -o "Dir::Etc::sourcelist=$apt/sources.list" -o Dir::Etc::sourceparts=-
    -o "Dir::State::lists=$apt/lists" -o "Dir::Cache=$apt" -o APT::Sandbox::User=root)
  apt-get "${options[@]}" update
  (cd "$apt" && rm -rf "$1"-*/ && fetch_source "$1" "${options[@]}")
  mv "$apt/$1"-*/ "$work/$1"
}

install_library() { # name, source, option...
  cmake -G Ninja -S "$2" -B "$work/build-$1" --toolchain "$toolchain" -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_INSTALL_PREFIX="$folder" "${@:3}" >"$work/$1.log"
  cmake --build "$work/build-$1" --parallel "$jobs" --target install >>"$work/$1.log"
}

if [[ ! -f $folder/lib/libzip.a ]]; then
  echo "Building libzip"
  [[ -d $work/libzip ]] || unpack_source libzip
  install_library libzip "$work/libzip" -DBUILD_SHARED_LIBS=OFF -DBUILD_TOOLS=OFF \
    -DBUILD_REGRESS=OFF -DBUILD_EXAMPLES=OFF -DBUILD_DOC=OFF -DENABLE_BZIP2=OFF -DENABLE_LZMA=OFF \
    -DENABLE_COMMONCRYPTO=OFF -DENABLE_GNUTLS=OFF -DENABLE_MBEDTLS=OFF -DENABLE_OPENSSL=OFF \
    -DENABLE_WINDOWS_CRYPTO=OFF
fi

if [[ ! -f $folder/lib/libutf8proc.a ]]; then
  echo "Building utf8proc"
  [[ -d $work/utf8proc ]] || unpack_source utf8proc
  install_library utf8proc "$work/utf8proc" -DBUILD_SHARED_LIBS=OFF
fi

if [[ ! -f $folder/lib/libexpat.a ]]; then
  echo "Building expat"
  [[ -d $work/expat ]] || unpack_source expat
  # Debian's patches use the value of a macro that CMake only defines.
  sed -i 's/^#cmakedefine XML_DTD$/& 1/' "$work/expat/expat/expat_config.h.cmake"
  install_library expat "$work/expat/expat" -DEXPAT_SHARED_LIBS=OFF -DEXPAT_BUILD_DOCS=OFF \
    -DEXPAT_BUILD_EXAMPLES=OFF -DEXPAT_BUILD_TESTS=OFF -DEXPAT_BUILD_TOOLS=OFF
fi

if [[ ! -f $folder/lib/libgtest.a ]]; then
  echo "Building GoogleTest"
  install_library gtest /usr/src/googletest -DBUILD_GMOCK=OFF
fi

if [[ ! -d $folder/include/CLI ]]; then
  # The headers are copied, because their folder also has the headers of this system.
  cp -r /usr/include/CLI "$folder/include"
  mkdir -p "$folder/share/cmake"
  cp -r /usr/share/cmake/CLI11 "$folder/share/cmake"
fi

# Qt is built statically and with few features: the program is then a single file and needs only the
# basic modules, the platform plug-in and the style. moc, uic and rcc of this system are used; they
# have the same version. Some features depend on others: DirectWrite needs Direct2D, and OpenGL can
# only be left out as a whole.
if [[ ${3:-} == window && ! -f $folder/lib/cmake/Qt6Widgets/Qt6WidgetsConfig.cmake ]]; then
  echo "Building Qt, which takes a while"
  [[ -d $work/qt6-base ]] || unpack_source qt6-base
  without=()
  for feature in androiddeployqt concurrent dbus direct2d directwrite gif ico jpeg network pkg_config \
    printsupport sql system_zlib tabletevent testlib vulkan xml; do
    without+=("-DFEATURE_$feature=OFF")
  done
  install_library qt "$work/qt6-base" -DBUILD_SHARED_LIBS=OFF -DINPUT_opengl=no -DQT_HOST_PATH=/usr \
    -DQT_HOST_PATH_CMAKE_DIR="/usr/lib/$(gcc -print-multiarch)/cmake" "${without[@]}"
fi
