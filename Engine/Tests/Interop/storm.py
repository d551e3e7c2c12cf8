"""Ten thousand messages that no client would send: storm.py TAVIX [COUNT [SEED]].

Malformed, cut, huge, repeated and interleaved lines, among them calls that name files outside the root, directly, by links
and by "..". The server must go on answering, must not grow without end, and must leave every file outside alone.
"""
import json
import os
import random
import subprocess
import sys
import tempfile
import threading
import time

program, count, seed = os.path.abspath(sys.argv[1]), int((sys.argv[2:] or [10_000])[0]), int((sys.argv[3:] or [1])[0])
rng = random.Random(seed)
tools = ['new_document', 'read_document', 'edit_document', 'check', 'describe', 'still', 'sheet', 'diff', 'render',
         'presets', 'schema', 'beats', 'probe', 'brand', 'no_such_tool']
methods = ['tools/list', 'resources/list', 'resources/read', 'prompts/list', 'prompts/get', 'ping', 'server/discover',
           'initialize', 'logging/setLevel', 'no/such', '', '\u0000']
sizes = {'huge': 0, 'messages': 0, 'calls': 0}


def canaries(outer):
    """Files outside the root, and how they are found again: bytes, times and names."""
    seen = {}
    for folder, _, names in os.walk(outer):
        if folder.startswith(os.path.join(outer, 'root')):
            continue
        for name in names:
            path = os.path.join(folder, name)
            info = os.lstat(path)
            with open(path, 'rb') as file:
                seen[path] = (file.read(), info.st_mtime_ns, info.st_size)
    return seen


def places(outer):
    return ['film.json', 'none.json', '../canary.json', outer + '/canary.json', 'link.json', 'linked/canary.json',
            'linked/new.tavixcomp', '../new.tavixcomp', '/etc/passwd', '', '.', '..', 'a' * 5000, 'film.json\u0000x',
            '~/canary.json', '$HOME/canary.json', '; touch ../pwned', '`touch ../pwned`', '-o', '--help', '🎬.json']


def value(depth=0):
    kind = rng.randrange(9 if depth < 3 else 6)
    if kind == 0:
        return rng.choice([None, True, False, 0, -1, 1e308, 2**63, 0.1])
    if kind in (1, 2):
        return rng.choice(['', 'x', 'film.json', '\u0000', '\ud83c\udfac', 'y' * rng.choice([10, 1000, 50_000])])
    if kind < 6:
        return rng.randrange(-5, 500)
    if kind == 6:
        return [value(depth + 1) for _ in range(rng.randrange(4))]
    return {rng.choice(['path', 'at', 'x', '', 'cursor', '_meta']): value(depth + 1) for _ in range(rng.randrange(4))}


# What a tool takes, mostly.
known = {
    'read_document': {'pointer': ['/scenes/0', '/none', 'x', '']}, 'check': {'quick': [True]},
    'edit_document': {'pointer': ['/scenes/0/durationSec'], 'value': [1, 2, 'x', 1e9, [], None]},
    'describe': {'at': [0, 0.5, -1, 1e9]}, 'still': {'at': [0, 0.5]}, 'sheet': {'every': [0.5, 1e-9, -1]},
    'diff': {'other': ['film.json', '../canary.json', 'link.json']}, 'presets': {'family': ['motions', 'none', '-o']},
    'render': {'output': ['film.mp4', '../film.mp4', 'linked/film.mp4', '/film.mp4', 'film.json', 'link.json']},
    'schema': {'type': ['layer', 'none']}, 'new_document': {'template': ['teaser', 'none', '../x']},
}


def call(outer):
    sizes['calls'] += 1
    tool = rng.choice(tools)
    arguments = {}
    if tool not in ('presets', 'schema'):
        arguments['path'] = 'film.json' if rng.random() < 0.5 else rng.choice(places(outer))
    for key, values in known.get(tool, {}).items():
        arguments[key] = rng.choice(values)
    if rng.random() < 0.2:
        arguments[rng.choice(['path', 'at', 'cursor', 'x'])] = value()
    return {'method': 'tools/call', 'params': {'name': tool, 'arguments': arguments}}


def message(outer):
    kind = rng.random()
    if kind < 0.12:
        body = call(outer)
    elif kind < 0.2:
        body = {'method': 'notifications/cancelled', 'params': {'requestId': rng.randrange(2000), 'reason': value()}}
    else:
        body = {'method': rng.choice(methods), 'params': value()}
    body = {'jsonrpc': rng.choice(['2.0'] * 9 + ['1.0', None]), **body}
    if rng.random() < 0.8:
        body['id'] = rng.choice([rng.randrange(2000), 'id', 1.5, None, [], {}, -1, 2**70])
    if rng.random() < 0.3 and isinstance(body.get('params'), dict):
        body['params']['_meta'] = {
            'io.modelcontextprotocol/protocolVersion': rng.choice(['2026-07-28', '1999-01-01', 7]),
            'io.modelcontextprotocol/clientCapabilities': {}}
    return json.dumps(body).encode()


def line(outer):
    kind = rng.random()
    text = message(outer)
    if kind < 0.15:
        text = text[:rng.randrange(len(text) + 1)]
    elif kind < 0.25:
        at = rng.randrange(len(text) + 1)
        text = text[:at] + rng.randbytes(rng.randrange(1, 9)).replace(b'\n', b' ') + text[at:]
    elif kind < 0.3:
        text = b'[' + b','.join([text] * rng.randrange(1, 4)) + b']'
    elif kind < 0.33:
        text = b'[' * rng.choice([10, 1000, 100_000]) + text
    elif kind < 0.331:
        sizes['huge'] += 1
        text = b'{"jsonrpc":"2.0","id":1,"method":"ping","params":"' + b'x' * rng.choice([7 << 20, 9 << 20]) + b'"}'
    elif kind < 0.36:
        text = rng.choice([b'', b'\r', b'null', b'7', b'"text"', b'{}', b'[]', b'\xff\xfe', b'\xef\xbb\xbf{}'])
    return text


def peak_kb(pid):
    with open(f'/proc/{pid}/status') as file:
        return next(int(text.split()[1]) for text in file if text.startswith('VmHWM'))


with tempfile.TemporaryDirectory() as outer:
    root = os.path.join(outer, 'root')
    os.makedirs(os.path.join(outer, 'home'))
    os.makedirs(os.path.join(outer, 'other'))
    os.makedirs(root)
    film = json.dumps({'output': {'widthPx': 640, 'heightPx': 360, 'fps': 24}, 'scenes': [
        {'id': 'one', 'durationSec': 1, 'layers': [{'kind': 'text', 'text': {'text': 'Hello'}}]}]})
    for name in ('canary.json', 'other/canary.json', 'home/canary.json', 'root/film.json'):
        with open(os.path.join(outer, name), 'w') as file:
            file.write(film)
    os.symlink('../canary.json', os.path.join(root, 'link.json'))
    os.symlink('../other', os.path.join(root, 'linked'))
    before = canaries(outer)

    server = subprocess.Popen([program, 'mcp', 'serve', '--root', root], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL, cwd=outer, env={**os.environ, 'HOME': outer + '/home'})
    answers, pings, longest, wrong = 0, {}, 0, []

    def listen():
        global answers, longest
        for text in server.stdout:
            answers += 1
            longest = max(longest, len(text))
            try:
                told = json.loads(text)
            except ValueError:
                wrong.append(text[:200])
                continue
            for each in told if isinstance(told, list) else [told]:
                if isinstance(each.get('id'), str) and each['id'].startswith('sure-'):
                    pings[each['id']] = time.monotonic()

    listener = threading.Thread(target=listen)
    listener.start()
    start, slowest = time.monotonic(), 0

    def sure(name):
        """A call that must be answered whatever came before; it waits for those before it."""
        asked = time.monotonic()
        server.stdin.write(json.dumps({'jsonrpc': '2.0', 'id': name, 'method': 'tools/call', 'params': {
            'name': 'read_document', 'arguments': {'path': 'film.json', 'depth': 1}, '_meta': {
            'io.modelcontextprotocol/protocolVersion': '2026-07-28',
            'io.modelcontextprotocol/clientCapabilities': {}}}}).encode() + b'\n')
        server.stdin.flush()
        while name not in pings:
            assert server.poll() is None, f'the server ended with {server.returncode}; seed {seed}'
            assert time.monotonic() - asked < 120, f'no answer for two minutes at {name}; seed {seed}'
            time.sleep(0.002)
        return pings[name] - asked

    server.stdin.write(json.dumps({'jsonrpc': '2.0', 'id': 'open', 'method': 'initialize', 'params': {
        'protocolVersion': '2025-11-25', 'capabilities': {},
        'clientInfo': {'name': 'storm', 'version': '1'}}}).encode() + b'\n')
    for number in range(count):
        text = line(outer)
        sizes['messages'] += 1
        # Some come in pieces, some several at once.
        pieces = [text + b'\n'] if rng.random() < 0.8 else [text[:len(text) // 2], text[len(text) // 2:] + b'\n']
        for piece in pieces:
            server.stdin.write(piece)
            if rng.random() < 0.5:
                server.stdin.flush()
        if number % 20 == 19:
            slowest = max(slowest, sure(f'sure-{number}'))
    slowest = max(slowest, sure('sure-end'))
    server.stdin.write(b'{"jsonrpc":"2.0","id":1,"meth')   # the end comes in the middle
    peak = peak_kb(server.pid)
    server.stdin.close()
    status = server.wait(60)
    listener.join(60)
    took = time.monotonic() - start

    assert status == 0, f'the server ended with {status}; seed {seed}'
    assert not wrong, wrong[0]
    after = canaries(outer)
    assert after == before, [path for path in {**before, **after} if before.get(path) != after.get(path)]
    print(f'{sizes["messages"]} messages ({sizes["calls"]} calls, {sizes["huge"]} of 7 to 9 MB), {answers} answers, '
          f'the longest {longest} bytes, {took:.0f} s, slowest sure answer {slowest:.2f} s, peak {peak // 1024} MB; '
          f'nothing outside the root touched')
