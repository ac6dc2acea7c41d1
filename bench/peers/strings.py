"""The procedures of bench/programs/strings.otx as people write them in Python: OPERATION SIZE ROUNDS. Prints seconds."""

import datetime
import re
import sys
import time

TIMESTAMP = 1767596889005


def concatenate(text, count, n):
    for _ in range(n):
        result = text + text
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
    pattern = "[a-z]+z!"
    for _ in range(n):
        result = re.fullmatch(pattern, text) is not None
    return result


def format_date(text, count, n):
    pattern = "%Y-%m-%d %H:%M:%S " * (len(text) // 20)
    for _ in range(n):
        result = datetime.datetime.fromtimestamp(TIMESTAMP / 1000).strftime(pattern)
    return result


OPERATIONS = {"concatenate": concatenate, "subString": sub_string, "indexOf": index_of, "match": match,
              "formatDate": format_date}


def main():
    operation, size, n = OPERATIONS[sys.argv[1]], int(sys.argv[2]), int(sys.argv[3])
    text = ("abcdefghij" * (size // 10))[:size - 2] + "z!"
    begin = time.process_time()
    result = operation(text, size - 10, n)
    print(time.process_time() - begin, len(str(result)))


main()
