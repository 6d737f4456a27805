#!/usr/bin/env bash
# What check-packages finds, on scripts and caches with a planted program, and what it lets pass.
# shellcheck source=tests/script/support.sh
. "$(dirname "${BASH_SOURCE[0]}")/support.sh" "$1"

printf 'g++\ncmake\n' >packages
printf '# optional\nsudo  somebody\n' >optional
check() { "$root/script/lib/check-packages" --packages packages --optional optional "$@"; }
check_script() { check --caches --scripts script; }
check_cache() { check --scripts --caches CMakeCache.txt; }

# Words that look like programs and are none; programs of the base system, of the list and of a dependency.
cat >script <<'END'
#!/usr/bin/env bash
# frobnicate is a comment
helper() { printf '%s\n' "frobnicate; $1" >&2; }
text="frobnicate | cat"
for frobnicate in a b; do helper "$frobnicate" frobnicate; done
cat <<EOF
frobnicate
EOF
[ -n "$text" ] && cmake --version | grep -c version || sudo true
x=1 env -i PATH=/bin g++ -v; ld --version; ./frobnicate; bin/frobnicate "$x"
case $x in frobnicate) ;; esac
END
passes check_script

while read -r line; do
    printf '#!/usr/bin/env bash\n%s\n' "$line" >script
    refuses 'script needs frobnicate,' check_script
done <<'END'
frobnicate
cat script | frobnicate
true && x=1 frobnicate -y
x=$(frobnicate)
echo "a $(echo "$(frobnicate b)") c"
function f { if frobnicate; then :; fi; }
f() ( ! frobnicate )
"${as_root[@]}" frobnicate
xargs -r -P "$jobs" -n 3 frobnicate
sudo env A=b timeout -k 5 60 frobnicate "$@"
trap 'echo; frobnicate' EXIT
xargs bash -c 'frobnicate "$@"' _
exec unshare --mount bash -euc 'true; frobnicate' a b
diff <(frobnicate) script
command -v frobnicate || true
while read -r line; do frobnicate "$line"; done <script
END

printf '#!/usr/bin/env frobnicate\n' >script
refuses 'script needs frobnicate,' check_script
printf '#!/usr/bin/env bash\n/usr/bin/frobnicate\n' >script
refuses 'script needs /usr/bin/frobnicate,' check_script
printf '#!/usr/bin/env python3\nimport subprocess\nsubprocess.run(["frobnicate", "-v"])\n' >script
refuses 'script needs frobnicate,' check_script

# What belongs to a program in Python need not be one itself.
while read -r line; do
    printf 'import subprocess, part\n%s\n' "$line" >part.py
    refuses 'part.py needs frobnicate,' check --caches --scripts part.py
done <<'END'
output("frobnicate", "-v")
part.output("frobnicate", part)
subprocess.check_output(["frobnicate"])
END
printf 'part.output(1)\nother("frobnicate")\noutput("cmake")\n' >part.py
passes check --caches --scripts part.py

printf 'CMAKE_CXX_COMPILER:FILEPATH=/usr/bin/c++\nA_HOME:PATH=/usr/include\n' >CMakeCache.txt
passes check_cache
# Whether or not this machine has it, the list does not bring it.
printf 'CMAKE_CXX_COMPILER:FILEPATH=/usr/bin/clang++\n' >CMakeCache.txt
refuses 'CMakeCache.txt needs /usr/bin/clang++,' check_cache
# The package that a release calls clang-14 has the compiler, but not under this name.
dpkg-query -W -f='${Depends}' clang | grep -o 'clang-[0-9]*' >>packages
refuses 'CMakeCache.txt needs /usr/bin/clang++,' check_cache
echo clang >>packages
passes check_cache
# A program of somebody's own stands for the one of the packages, if there is one.
printf 'A:FILEPATH=/home/somebody/bin/cmake\n' >CMakeCache.txt
passes check_cache
printf 'A:FILEPATH=/home/somebody/bin/frobnicate\n' >CMakeCache.txt
refuses 'CMakeCache.txt needs' check_cache

echo frobnicate >>packages
refuses 'not installed: frobnicate' check_cache
