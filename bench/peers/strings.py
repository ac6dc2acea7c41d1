"""The procedures of bench/programs/strings.otx as people write them in Python: OPERATION SIZE ROUNDS. Prints seconds.

An operation whose name ends with "Wide" works on a text that isn't all ASCII."""

import datetime
import re
import sys
import time

TIMESTAMP = 1767596889005


def concatenate(text, count, n):
    for _ in range(n):
        result = text + text
    return result


def length(text, count, n):
    for _ in range(n):
        result = len(text)
    return result


def replace(text, count, n):
    new = "12345"
    for _ in range(n):
        result = text[:count] + new + text[count + len(new):]
    return result


def sub_string(text, count, n):
    for _ in range(n):
        result = text[5:5 + count]
    return result


def index_of(text, count, n):
    pattern = "z!"
    for _ in range(n):
        result = text.find(pattern)
    return result


def match(text, count, n):
    pattern = "[a-z\u00e9\u4e2d]+z!" if "\u4e2d" in text else "[a-z]+z!"
    for _ in range(n):
        result = re.fullmatch(pattern, text) is not None
    return result


def format_date(text, count, n):
    pattern = "%Y-%m-%d %H:%M:%S " * (len(text) // 20)
    for _ in range(n):
        result = datetime.datetime.fromtimestamp(TIMESTAMP / 1000).strftime(pattern)
    return result


OPERATIONS = {"concatenate": concatenate, "length": length, "replace": replace, "subString": sub_string, "indexOf": index_of, "match": match,
              "formatDate": format_date}


def main():
    name, size, n = sys.argv[1], int(sys.argv[2]), int(sys.argv[3])
    operation = OPERATIONS[name.removesuffix("Wide")]
    part = "abcdefg\u00e9\u4e2dj" if name.endswith("Wide") else "abcdefghij"
    text = part * (size // 10 - 1) + "abcdefghz!"
    begin = time.process_time()
    result = operation(text, size - 10, n)
    print(time.process_time() - begin, len(str(result)))


main()
