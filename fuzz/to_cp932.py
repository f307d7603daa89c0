#!/usr/bin/env python3
"""Copies a C++ source of the book engine with its Japanese literals turned
into Shift-JIS (CP932) octal escapes, for compilers without a Shift-JIS
execution character set (clang). The engine is otherwise built with
-fexec-charset=CP932, which does the same thing.

Only plain string and character literals change: comments and the rest of
the text are copied byte for byte. Octal escapes are used because they end
after three digits, so the character behind them can never join them.

Usage: to_cp932.py INPUT OUTPUT
"""
import sys


def convert(text):
    out = []
    i, n = 0, len(text)
    while i < n:
        c = text[i]
        if text.startswith("//", i):
            end = text.find("\n", i)
            end = n if end < 0 else end
            out.append(text[i:end])
            i = end
        elif text.startswith("/*", i):
            end = text.find("*/", i + 2)
            end = n if end < 0 else end + 2
            out.append(text[i:end])
            i = end
        elif c in "\"'":
            out.append(c)
            i += 1
            while i < n and text[i] != c:
                if text[i] == "\\":
                    out.append(text[i:i + 2])
                    i += 2
                    continue
                if ord(text[i]) >= 0x80:
                    out.append("".join("\\%03o" % b for b in text[i].encode("cp932")))
                else:
                    out.append(text[i])
                i += 1
            if i < n:
                out.append(c)
                i += 1
        else:
            out.append(c)
            i += 1
    return "".join(out)


def main():
    source, target = sys.argv[1], sys.argv[2]
    with open(source, encoding="utf-8") as f:
        text = f.read()
    with open(target, "w", encoding="utf-8") as f:
        f.write(convert(text))


if __name__ == "__main__":
    main()
