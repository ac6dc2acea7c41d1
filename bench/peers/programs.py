"""The programs of bench/programs as people write them in Python. Prints seconds, smallest of the rounds."""

import sys
import time


def loop(n):
    i = 0
    while i < n:
        i = i + 1
    return i


def next_of(x):
    return x + 1


def call(n):
    y = 0
    for i in range(1, n + 1):
        y = next_of(i)
    return y


def list_(n):
    items = []
    for i in range(1, n + 1):
        items.append(i)
    total = 0
    for i in range(len(items)):
        total = total + items[i]
    return total


def fib(n):
    if n < 2:
        return n
    return fib(n - 1) + fib(n - 2)


PROGRAMS = {"loop": loop, "call": call, "list": list_, "fib": fib}


def main():
    program, n = PROGRAMS[sys.argv[1]], int(sys.argv[2])
    begin = time.process_time()
    result = program(n)
    print(time.process_time() - begin, result)


main()
