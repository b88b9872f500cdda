#!/usr/bin/env python3
"""Doxygen input filter for the public headers.

The headers carry plain C comments, one above each declaration or group of
declarations, so that they read well as text. For the reference manual each
such comment becomes a Doxygen comment, and a comment that serves several
declarations becomes the documentation of all of them (a member group). The
headers themselves are not changed.
"""
import re
import sys

DECL = re.compile(r"^(QELMATH_API|QELMEMORY_API|enum |#define QELMATH_VERSION_)")


def main(path):
    lines = open(path, encoding="utf-8").read().split("\n")
    out, i, first = [], 0, True
    while i < len(lines):
        line = lines[i]
        if line.startswith("/*") and "*/" not in line[2:] or line.startswith("/*") and line.rstrip().endswith("*/"):
            j = i
            while "*/" not in lines[j]:
                j += 1
            block = lines[i:j + 1]
            k = j + 1
            decls = 0
            while k < len(lines) and DECL.match(lines[k]):
                decls += 1
                # an enum or declaration may run over several lines
                while k < len(lines) and not re.search(r"[;}]\s*;?\s*$|^#define", lines[k]):
                    k += 1
                k += 1
            if first:
                block[0] = "/** @file " + block[0][2:].lstrip()
                first = False
                out.extend(block)
            elif decls == 0:
                out.extend(block)
            else:
                block[0] = "/**" + block[0][2:]
                if decls > 1:
                    out.append("/** @{ */")
                out.extend(block)
                out.extend(lines[j + 1:k])
                if decls > 1:
                    out.append("/** @} */")
                i = k
                continue
            i = j + 1
            continue
        out.append(line)
        i += 1
    sys.stdout.write("\n".join(out))


if __name__ == "__main__":
    main(sys.argv[1])
