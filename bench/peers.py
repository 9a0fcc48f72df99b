#!/usr/bin/env python3
"""The measuring half of bench/peers.sh, which says what it does.
Usage: bench/peers.py VELORIA_CLI FOLDER ROUNDS"""
import os
import sys
import wave

VELORIA, FOLDER, ROUNDS = sys.argv[1], sys.argv[2], int(sys.argv[3])
SOUND_FONT = "/usr/share/sounds/sf2/TimGM6mb.sf2"
PATCHES = "/etc/timidity/freepats.cfg"
SECONDS = 180  # of the sound files
STACKS = ["--fibonacci", "14", "--pi", "14", "--tesla", "3", "--octave", "3", "--phi", "3"]


def at(name):
    return os.path.join(FOLDER, name)


def run(command):
    """Runs it to its end; (seconds of the core, peak memory in MB)."""
    if os.path.exists(at("out.wav")):
        os.remove(at("out.wav"))
    # Between us and it stands a small program: a fork of this one would count with its own size.
    timed = ["/usr/bin/time", "-f", "%M", "-o", at("memory.txt"), *command]
    null = [(os.POSIX_SPAWN_OPEN, 0, os.devnull, os.O_RDONLY, 0)]
    null += [(os.POSIX_SPAWN_OPEN, stream, os.devnull, os.O_WRONLY, 0) for stream in (1, 2)]
    child = os.posix_spawn(timed[0], timed, os.environ, file_actions=null)
    _, status, usage = os.wait4(child, 0)
    if status != 0 or not os.path.exists(at("out.wav")) or os.path.getsize(at("out.wav")) < 1000:
        sys.exit("peers: no WAV file from: " + " ".join(command))
    with open(at("memory.txt")) as memory:
        return usage.ru_utime + usage.ru_stime, int(memory.read().split()[-1]) / 1024


def veloria(source, *options):
    return [VELORIA, "render", at(source), at("out.wav"), "--quiet", *options]


def fluidsynth(source):
    return ["fluidsynth", "-ni", "-q", "-F", at("out.wav"), "-T", "wav", "-O", "s16", "-r", "44100", "-o",
            "synth.polyphony=512", SOUND_FONT, at(source)]


def wildmidi(source):
    return ["wildmidi", "-c", PATCHES, "-r", "44100", "-o", at("out.wav"), at(source)]


def make_sound():
    run(fluidsynth("audio.mid"))
    # Exactly as long as it says, and with a bit of air above.
    sox = ["sox", at("out.wav"), "-c", "2", "-b", "16", at("audio.wav"), "trim", "0", str(SECONDS), "norm", "-3"]
    if os.spawnvp(os.P_WAIT, sox[0], sox) != 0:
        sys.exit("peers: sox made no file")
    lame = ["lame", "--quiet", "-b", "192", at("audio.wav"), at("audio.mp3")]
    if os.spawnvp(os.P_WAIT, lame[0], lame) != 0:
        sys.exit("peers: lame made no file")
    with wave.open(at("audio.wav")) as sound:
        assert sound.getnframes() == SECONDS * sound.getframerate()


def works():
    """Rows of (what is done, veloria-cli's command, {peer: its command})."""
    rows = [("MIDI to WAV, song %d" % i, veloria("song%d.mid" % i),
             {"fluidsynth": fluidsynth("song%d.mid" % i), "wildmidi": wildmidi("song%d.mid" % i)}) for i in range(1, 7)]
    rows.append(("song 2 with 38 partials a note, the peer plain", veloria("song2.mid", *STACKS),
                 {"fluidsynth": fluidsynth("song2.mid")}))
    rows.append(("255 notes held for 60 s", veloria("held.mid"), {"fluidsynth": fluidsynth("held.mid")}))
    rows.append(("retune %d s of WAV" % SECONDS, veloria("audio.wav", "--fft", "full"), {
        "rubberband -2": ["rubberband", "-q", "-2", "-p", "0.5", at("audio.wav"), at("out.wav")],
        "sox pitch": ["sox", at("audio.wav"), at("out.wav"), "pitch", "50"],
        "soundstretch": ["soundstretch", at("audio.wav"), at("out.wav"), "-pitch=0.5"]}))
    rows.append(("WAV to WAV, %d s" % SECONDS, veloria("audio.wav"), {"sox": ["sox", at("audio.wav"), at("out.wav")]}))
    rows.append(("MP3 to WAV, %d s" % SECONDS, veloria("audio.mp3"),
                 {"mpg123": ["mpg123", "-q", "-w", at("out.wav"), at("audio.mp3")]}))
    return rows


def median(values):
    return sorted(values)[len(values) // 2]


def main():
    make_sound()
    rows = works()
    figures = {}  # by row and tool: [(seconds, MB) of each round]
    for round_number in range(ROUNDS):
        print("peers: round %d of %d" % (round_number + 1, ROUNDS), file=sys.stderr)
        for work, own, peers in rows:
            for tool, command in [("veloria-cli", own), *peers.items()]:
                figures.setdefault((work, tool), []).append(run(command))
    print("Median of %d rounds, seconds of one core; above 1 veloria-cli is the faster.\n" % ROUNDS)
    print("| work | veloria-cli | peak MB | peer | its time | peak MB | Veloria is faster by |")
    print("| --- | --- | --- | --- | --- | --- | --- |")
    for work, _, peers in rows:
        own, memory = (median([figure[i] for figure in figures[work, "veloria-cli"]]) for i in (0, 1))
        for peer in peers:
            time, peer_memory = (median([figure[i] for figure in figures[work, peer]]) for i in (0, 1))
            print("| %s | %.2f s | %.0f | %s | %.2f s | %.0f | %.2f |" %
                  (work, own, memory, peer, time, peer_memory, time / own))


if __name__ == "__main__":
    main()
