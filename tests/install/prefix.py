#!/usr/bin/env python3
"""Installs the build into a clean prefix, moves it, and builds and runs the hosts among the examples, and builds the plug-in,
against that prefix only. The smallest host is built and run by the commands of the guide for hosts."""
import os
import re
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


def check_library(program, prefix, environment):
    loaded = call("ldd", program, env=environment)
    ours = [line.split("=>")[1].split()[0] for line in loaded.splitlines() if "libVelkOTX" in line]
    require(len(ours) == 1 and Path(ours[0]).resolve().is_relative_to(prefix), f"another library is taken:\n{loaded}")


def check_guide(cmake, compiler, prefix, library, source, work, environment):
    """The commands of the guide, as they stand there but for the name of the folder of libraries and of the compiler."""
    page = (source / "docs/host-guide.md").read_text(encoding="utf-8")
    section = re.search(r"^## Finding the library$(.*?)^## ", page, re.M | re.S).group(1)
    blocks = re.findall(r"^```sh\n(.*?)^```$", section, re.M | re.S)
    script = "".join(blocks).replace("$PREFIX/lib", f"$PREFIX/{library}").replace("g++ ", '"$CXX" ').replace("cmake ", '"$CMAKE" ')
    work.mkdir()
    (work / "examples").symlink_to(source / "examples")
    environment = {**environment, "PREFIX": str(prefix), "CXX": compiler, "CMAKE": cmake}
    out = call("sh", "-eu", "-c", script, cwd=work, env=environment)
    require(len(blocks) == 2 and out.count("verdict = REPLACE WEAK CELLS\n") == 3, out)
    check_library(work / "embed/build/embed", prefix, environment)
    check_library(work / "with-rpath", prefix, environment)
    check_library(work / "without-rpath", prefix, {**environment, "LD_LIBRARY_PATH": str(prefix / library)})


def check_failure(cmake, compiler, example, environment):
    """Nobody has told where VelkOTX is: the words say what to do. What may be installed on this system isn't looked for."""
    nowhere = ("-DCMAKE_FIND_USE_CMAKE_SYSTEM_PATH=OFF", "-DCMAKE_FIND_USE_SYSTEM_ENVIRONMENT_PATH=OFF",
               "-DCMAKE_FIND_USE_PACKAGE_REGISTRY=OFF", "-DCMAKE_FIND_USE_SYSTEM_PACKAGE_REGISTRY=OFF",
               f"-DCMAKE_MAKE_PROGRAM={shutil.which('make')}")
    result = subprocess.run([cmake, "-G", "Unix Makefiles", "-S", str(example), "-B", str(example / "nowhere"),
                             f"-DCMAKE_CXX_COMPILER={compiler}", *nowhere],
                            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False, env=environment)
    words = " ".join(result.stdout.split())
    require(result.returncode != 0 and 'Add the installation prefix of "VelkOTX" to CMAKE_PREFIX_PATH' in words, result.stdout)


def built_with_cmake(cmake, compiler, example, prefix, environment):
    build = example / "build"
    call(cmake, "-S", example, "-B", build, f"-DCMAKE_CXX_COMPILER={compiler}", f"-DCMAKE_PREFIX_PATH={prefix}",
         env=environment)
    call(cmake, "--build", build, env=environment)
    return build


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
    told = ("LD_LIBRARY_PATH", "CMAKE_PREFIX_PATH", "PKG_CONFIG_PATH")
    environment = {name: value for name, value in os.environ.items() if name not in told}

    for example in ("embed", "complete-host", "providers/file-hash"):
        check_failure(cmake, compiler, examples / example, environment)
    check_guide(cmake, compiler, prefix, library, source, work / "guide", environment)

    host = built_with_cmake(cmake, compiler, examples / "complete-host", prefix, environment) / "complete_host"
    require("services = 2\n" in call(host, examples / "complete-host/service-counter.otx"), "the complete host doesn't count")

    plugins = built_with_cmake(cmake, compiler, examples / "providers/file-hash", prefix, environment) / "providers"
    out = call(prefix / "bin/velkotx", "run", source / "examples/09-file-hash.otx", "--providers", plugins, cwd=source)
    require("wasEnded = TRUE\n" in out, out)
    shutil.rmtree(work)


main()
