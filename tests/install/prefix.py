#!/usr/bin/env python3
"""Installs the build into a clean prefix, moves it, and builds and runs the hosts among the examples, and builds the plug-in,
against that prefix only."""
import os
import shutil
import subprocess
import sys
from pathlib import Path

EXPECTED = """
bin/velkotx
include/otx/value/COtxValue.h
include/velkotx/Sequencer.h
{lib}/cmake/VelkOTX/VelkOTXConfig.cmake
{lib}/cmake/VelkOTX/VelkOTXConfigVersion.cmake
{lib}/cmake/VelkOTX/VelkOTXTargets.cmake
{lib}/libVelkOTX.so
{lib}/pkgconfig/velkotx.pc
share/bash-completion/completions/velkotx
share/fish/vendor_completions.d/velkotx.fish
share/man/man1/velkotx.1
share/zsh/site-functions/_velkotx
"""


def call(*command, **options):
    result = subprocess.run([str(word) for word in command], stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                            text=True, check=False, **options)
    if result.returncode != 0:
        sys.exit(f"{' '.join(str(word) for word in command)}\n{result.stdout}status {result.returncode}")
    return result.stdout


def require(condition, words):
    if not condition:
        sys.exit(words)


def install(cmake, build, work):
    """The prefix, moved after the installation: nothing in it may depend on where it was."""
    call(cmake, "--install", build, "--prefix", work / "first")
    prefix = work / "prefix"
    (work / "first").rename(prefix)
    return prefix


def check_files(prefix, library, source, build):
    for name in EXPECTED.format(lib=library).split():
        require((prefix / name).exists(), f"{name} isn't installed")
    for folder, name in (("include/velkotx", "velkotx"), ("contracts/otx", "otx")):
        ours = {str(path.relative_to(source / folder)) for path in (source / folder).rglob("*.h")}
        installed = {str(path.relative_to(prefix / "include" / name)) for path in (prefix / "include" / name).rglob("*")
                     if path.is_file()}
        require(ours == installed, f"include/{name} differs from {folder}: {sorted(ours ^ installed)}")
    for path in prefix.rglob("*"):
        if path.is_file():
            content = path.read_bytes()
            for folder in (source, build):
                require(str(folder).encode() not in content, f"{path.relative_to(prefix)} names the folder {folder}")


def check_program(prefix, source):
    call(prefix / "bin/velkotx", "--version")
    call(prefix / "bin/velkotx", "run", source / "examples/04-sort.otx")


def expect_battery_check(program, prefix, source, environment):
    out = call(program, source / "examples/01-battery-check.otx", env=environment)
    require("verdict = REPLACE WEAK CELLS\n" in out, out)
    loaded = call("ldd", program, env=environment)
    ours = [line.split("=>")[1].split()[0] for line in loaded.splitlines() if "libVelkOTX" in line]
    require(len(ours) == 1 and Path(ours[0]).resolve().is_relative_to(prefix), f"another library is taken:\n{loaded}")


def built_with_cmake(cmake, compiler, example, prefix, environment):
    build = example / "build"
    call(cmake, "-S", example, "-B", build, f"-DCMAKE_CXX_COMPILER={compiler}", f"-DCMAKE_PREFIX_PATH={prefix}",
         env=environment)
    call(cmake, "--build", build, env=environment)
    return build


def with_pkg_config(compiler, example, prefix, library, source, work, environment):
    environment = {**environment, "PKG_CONFIG_PATH": str(prefix / library / "pkgconfig"),
                   "LD_LIBRARY_PATH": str(prefix / library)}
    flags = call("pkg-config", "--cflags", "--libs", "velkotx", env=environment).split()
    program = work / "with-pkg-config"
    call(compiler, "-std=c++20", example / "main.cpp", *flags, "-o", program, env=environment)
    expect_battery_check(program, prefix, source, environment)


def main():
    cmake, compiler = sys.argv[1:3]
    build, source, work = (Path(word).resolve() for word in sys.argv[3:6])
    work = work / "work"
    shutil.rmtree(work, ignore_errors=True)
    work.mkdir(parents=True)
    prefix = install(cmake, build, work)
    library = next(path.parent for path in prefix.rglob("libVelkOTX.so")).relative_to(prefix)
    check_files(prefix, library, source, build)
    check_program(prefix, source)

    # Copies, so that the examples can't fall back on the sources around them.
    examples = work / "examples"
    for name in ("embed", "complete-host", "providers/file-hash"):
        shutil.copytree(source / "examples" / name, examples / name)
    environment = {name: value for name, value in os.environ.items() if name not in ("LD_LIBRARY_PATH", "CMAKE_PREFIX_PATH")}

    embed = built_with_cmake(cmake, compiler, examples / "embed", prefix, environment) / "embed"
    expect_battery_check(embed, prefix, source, environment)
    with_pkg_config(compiler, examples / "embed", prefix, library, source, work, environment)

    host = built_with_cmake(cmake, compiler, examples / "complete-host", prefix, environment) / "complete_host"
    require("services = 2\n" in call(host, examples / "complete-host/service-counter.otx"), "the complete host doesn't count")

    plugins = built_with_cmake(cmake, compiler, examples / "providers/file-hash", prefix, environment) / "providers"
    out = call(prefix / "bin/velkotx", "run", source / "examples/09-file-hash.otx", "--providers", plugins, cwd=source)
    require("wasEnded = TRUE\n" in out, out)
    shutil.rmtree(work)


main()
