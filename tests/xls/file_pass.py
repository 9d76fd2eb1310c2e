"""Prints what a workbook that is encrypted by the password tells of it, in hexadecimal, a line for each of the three
ways of encryption."""

import hashlib
import struct
import sys


def rc4(key, data):
    state = list(range(256))
    j = 0
    for i in range(256):
        j = (j + state[i] + key[i % len(key)]) % 256
        state[i], state[j] = state[j], state[i]
    out = bytearray()
    i = j = 0
    for byte in data:
        i = (i + 1) % 256
        j = (j + state[i]) % 256
        state[i], state[j] = state[j], state[i]
        out.append(byte ^ state[(state[i] + state[j]) % 256])
    return bytes(out)


def masked(password):
    total = 0
    for byte in reversed(bytes([len(password)]) + password.encode()):
        total = ((total >> 14) & 1 | (total << 1) & 0x7FFF) ^ byte
    return struct.pack("<HHH", 0, 0x1234, total ^ 0xCE4B)


def by_md5(password):
    salt, text = bytes(range(16)), bytes(range(100, 116))
    start = hashlib.md5(password.encode("utf-16-le")).digest()[:5]
    block = hashlib.md5((start + salt) * 16).digest()[:5] + bytes(4)
    cipher = rc4(hashlib.md5(block).digest(), text + hashlib.md5(text).digest())
    return struct.pack("<HHH", 1, 1, 1) + salt + cipher


def by_sha1(password, bits):
    salt, text = bytes(range(16)), bytes(range(100, 116))
    start = hashlib.sha1(salt + password.encode("utf-16-le")).digest()
    key = hashlib.sha1(start + bytes(4)).digest()[: bits // 8]
    if bits == 40:
        key += bytes(11)
    cipher = rc4(key, text + hashlib.sha1(text).digest())
    head = struct.pack("<8I", 4, 0, 0x6801, 0x8004, bits, 1, 0, 0) + "Provider\0".encode("utf-16-le")
    verifier = struct.pack("<I", 16) + salt + cipher[:16] + struct.pack("<I", 20) + cipher[16:]
    return struct.pack("<HHHII", 1, 3, 2, 4, len(head)) + head + verifier


for record in (masked(sys.argv[1]), by_md5(sys.argv[1]), by_sha1(sys.argv[1], 40), by_sha1(sys.argv[1], 128)):
    print(record.hex())
