#!/usr/bin/env python3
"""Writes the songs that bench/peers.sh measures with: made up from a seed, so that they are the same everywhere.
Usage: bench/peer_songs.py FOLDER"""
import os
import struct
import sys

TICKS = 480  # a quarter note, half a second at 120 a minute


class Dice:
    """Numbers that look random and are the same with every Python."""

    def __init__(self, seed):
        self.state = seed

    def below(self, count):
        self.state = (self.state * 6364136223846793005 + 1442695040888963407) % 2**64
        return (self.state >> 33) % count

    def among(self, low, high):
        return low + self.below(high - low + 1)


def variable(number):
    data = [number & 127]
    while number > 127:
        number >>= 7
        data.append(number & 127 | 128)
    return bytes(reversed(data))


def song(events):
    """A file of one track of (tick, bytes)."""
    track, last = b"", 0
    for tick, data in sorted(events, key=lambda event: event[0]):
        track += variable(tick - last) + data
        last = tick
    track += b"\0\xff\x2f\0"
    return b"MThd" + struct.pack(">IHHH", 6, 0, 1, TICKS) + b"MTrk" + struct.pack(">I", len(track)) + track


def note(events, channel, start, length, key, velocity):
    events.append((start, bytes([0x90 | channel, key, velocity])))
    events.append((start + length, bytes([0x80 | channel, key, 0])))


def part(events, dice, channel, program, seconds, each, low, high, length, chord):
    """One player: every `each` ticks, or a little off it, `chord` keys of `low` to `high`."""
    events.append((0, bytes([0xC0 | channel, program])))
    tick = dice.below(TICKS)
    while tick < seconds * 2 * TICKS:
        for _ in range(dice.among(1, chord)):
            key = dice.among(low, high)
            note(events, channel, tick, dice.among(length // 2, length), key, dice.among(50, 120))
        tick += max(1, dice.among(each // 2, each * 3 // 2))


def write(folder, name, events):
    with open(os.path.join(folder, name), "wb") as file:
        file.write(song(events))


def band(seed, seconds, parts):
    dice, events = Dice(seed), []
    for channel, row in enumerate(parts):
        part(events, dice, channel if channel < 9 else channel + 1, *row[:1], seconds, *row[1:])
    return events


def held(seconds, channels, keys):
    """`channels` times `keys` organ notes, all held from the beginning to the end."""
    events = []
    for channel in [c for c in range(16) if c != 9][:channels]:
        events.append((0, bytes([0xC0 | channel, 19])))
        for i in range(keys):
            note(events, channel, 0, seconds * 2 * TICKS, 36 + 3 * i, 60)
    return events


def main():
    folder = sys.argv[1]
    piano, bass, strings, lead = (0, 160, 48, 84, 480, 3), (33, 240, 28, 48, 240, 1), (48, 960, 48, 76, 1920, 4), (
        73, 120, 60, 90, 200, 1)
    write(folder, "song1.mid", band(1, 70, [piano]))
    write(folder, "song2.mid", band(2, 103, [piano, bass, strings]))
    write(folder, "song3.mid", band(3, 140, [piano, bass, strings, lead, piano]))
    write(folder, "song4.mid", band(4, 90, [lead] * 6 + [bass]))
    write(folder, "song5.mid", band(5, 180, [strings] * 5 + [bass, lead]))
    write(folder, "song6.mid", band(6, 120, [piano, piano, bass, strings, strings, lead, lead, piano, strings, bass]))
    write(folder, "audio.mid", band(7, 180, [piano, bass, strings, lead]))
    write(folder, "held.mid", held(60, 15, 17))


if __name__ == "__main__":
    main()
