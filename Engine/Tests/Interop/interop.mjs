// Drives the server with the protocol's own clients: interop.mjs TAVIX FOLDER, where FOLDER holds node_modules.
// What is not installed is told and left out. Each client's talk is kept in FOLDER as talk-NAME.jsonl.
import assert from 'node:assert/strict';
import { spawnSync } from 'node:child_process';
import { existsSync, mkdirSync, mkdtempSync, readdirSync, realpathSync, rmSync, writeFileSync } from 'node:fs';
import { createRequire } from 'node:module';
import { join, resolve } from 'node:path';
import { pathToFileURL } from 'node:url';

const program = resolve(process.argv[2]);
const folder = resolve(process.argv[3]);
const required = createRequire(join(folder, 'package.json'));

async function load(name) {
    try {
        return await import(pathToFileURL(required.resolve(name)).href);
    } catch (error) {
        if (error.code === 'MODULE_NOT_FOUND' || error.code === 'ERR_MODULE_NOT_FOUND') return null;
        throw error;
    }
}

// Two beats a second for twelve seconds.
function clickTrack() {
    const rate = 22050;
    const samples = Buffer.alloc(rate * 12 * 2);
    for (let i = 0; i < rate * 12; ++i) {
        const since = (i % (rate / 2)) / rate;
        samples.writeInt16LE(Math.round(20000 * Math.exp(-since * 40) * Math.sin(2 * Math.PI * 220 * since)), i * 2);
    }
    const head = Buffer.alloc(44);
    head.write('RIFF', 0);
    head.writeUInt32LE(36 + samples.length, 4);
    head.write('WAVEfmt ', 8);
    head.writeUInt32LE(16, 16);
    head.writeUInt16LE(1, 20);
    head.writeUInt16LE(1, 22);
    head.writeUInt32LE(rate, 24);
    head.writeUInt32LE(rate * 2, 28);
    head.writeUInt16LE(2, 32);
    head.writeUInt16LE(16, 34);
    head.write('data', 36);
    head.writeUInt32LE(samples.length, 40);
    return Buffer.concat([head, samples]);
}

function makeRoot() {
    const root = realpathSync(mkdtempSync(join(folder, 'root-')));
    writeFileSync(join(root, 'clicks.wav'), clickTrack());
    mkdirSync(join(root, 'shop'));
    writeFileSync(join(root, 'shop/manifest.webmanifest'),
        JSON.stringify({ name: 'Shop', theme_color: '#aa3355', background_color: '#ffffff' }));
    const scenes = [{ id: 'one', durationSec: 1, layers: [{ kind: 'text', text: { text: 'Hello there' } }] }];
    writeFileSync(join(root, 'small.json'),
        JSON.stringify({ output: { widthPx: 640, heightPx: 360, fps: 24 }, scenes }));
    const long = { output: { widthPx: 640, heightPx: 360, fps: 30 }, scenes: [{ ...scenes[0], durationSec: 600 }] };
    writeFileSync(join(root, 'long.json'), JSON.stringify(long));
    return root;
}

// Keeps what goes through a transport.
function record(transport, talk) {
    const send = transport.send.bind(transport);
    transport.send = (message, ...rest) => {
        talk.push({ to: message });
        return send(message, ...rest);
    };
    let receive;
    Object.defineProperty(transport, 'onmessage', {
        get: () => receive,
        set: (handler) => {
            receive = handler && ((message, ...rest) => {
                talk.push({ from: message });
                return handler(message, ...rest);
            });
        },
    });
    return transport;
}

// Of an answer, what another run of the server must answer too.
function outlineOf(message) {
    if (message.method) return { method: message.method };
    if (message.error) return { id: message.id, error: message.error.code };
    const outline = { id: message.id, keys: Object.keys(message.result).sort() };
    if (message.result.isError) outline.isError = true;
    if (message.result.content) outline.content = message.result.content.map((part) => part.type);
    if (message.result.structuredContent) outline.structured = Object.keys(message.result.structuredContent).sort();
    return outline;
}

function keepTalk(name, talk, root) {
    const lines = talk.map(({ to, from }) => JSON.stringify(to ? { to } : { from: outlineOf(from) }));
    writeFileSync(join(folder, `talk-${name}.jsonl`), lines.join('\n').replaceAll(root, '/root') + '\n');
}

const wait = (ms) => new Promise((done) => setTimeout(done, ms));

// What every client does. `call` takes a tool's name, its arguments and the options of a request.
async function converse(client, call, root) {
    const { tools } = await client.listTools();
    assert.equal(tools.length, 14);
    const { resources } = await client.listResources();
    assert.ok(resources.length > 0);
    const { contents } = await client.readResource({ uri: resources[0].uri });
    assert.ok(contents[0].text.length > 0);
    const { prompts } = await client.listPrompts();
    assert.equal(prompts.length, 3);
    for (const prompt of prompts) {
        const given = Object.fromEntries((prompt.arguments ?? []).map((argument) => [argument.name, 'small.json']));
        assert.ok((await client.getPrompt({ name: prompt.name, arguments: given })).messages.length > 0);
    }

    const fine = {
        new_document: { path: 'made.tavixcomp', template: 'teaser', size: '360x640' },
        read_document: { path: 'small.json', pointer: '/scenes/0', depth: 2 },
        edit_document: { path: 'small.json', pointer: '/scenes/0/durationSec', value: 1.2 },
        check: { path: 'small.json', quick: true },
        describe: { path: 'small.json', at: 0.5, structure: true },
        still: { path: 'small.json', at: 0.5 },
        sheet: { path: 'small.json', every: 0.5 },
        diff: { path: 'small.json', other: 'long.json' },
        presets: { family: 'motions', search: 'rise' },
        schema: { type: 'text' },
        beats: { path: 'clicks.wav' },
        brand: { path: 'shop' },
    };
    for (const [name, given] of Object.entries(fine)) {
        const result = await call(name, given);
        assert.ok(!result.isError, `${name}: ${JSON.stringify(result.content)}`);
        assert.equal(typeof result.structuredContent, 'object', name);
        if (name === 'still' || name === 'sheet')
            assert.ok(result.content.some((part) => part.type === 'image' && part.data.length > 100), name);
    }

    const fractions = [];
    const film = await call('render', { path: 'small.json', output: 'small.mp4' },
        { onprogress: (told) => fractions.push(told.progress) });
    assert.ok(!film.isError, JSON.stringify(film.content));
    assert.ok(fractions.length > 2, 'progress is told');
    assert.deepEqual(fractions, [...fractions].sort((a, b) => a - b));
    assert.ok(existsSync(join(root, 'small.mp4')));
    assert.ok(!(await call('probe', { path: 'small.mp4' })).isError);

    const stop = new AbortController();
    const begun = call('render', { path: 'long.json', output: 'long.mp4' },
        { signal: stop.signal, onprogress: () => stop.abort('enough') });
    await assert.rejects(begun);
    for (let i = 0; i < 100 && readdirSync(root).some((name) => name.includes('partial')); ++i) await wait(100);
    const left = readdirSync(root).filter((name) => name.includes('long.mp4') || name.includes('partial'));
    assert.deepEqual(left, [], 'a cancelled render leaves nothing');

    for (const [name, given, says] of [
        ['describe', { path: 'small.json', att: 1 }, 'att'],
        ['describe', { path: '../small.json', at: 1 }, 'outside'],
        ['read_document', { path: 'none.json' }, 'none.json'],
        ['edit_document', { path: 'small.json', pointer: '/scenes', value: 7 }, 'scenes'],
    ]) {
        const result = await call(name, given);
        assert.equal(result.isError, true, name);
        assert.ok(result.content[0].text.includes(says), result.content[0].text);
    }
    await assert.rejects(call('no_such_tool', {}));
    assert.ok(!(await call('check', { path: 'small.json', quick: true })).isError, 'it goes on after all that');
}

function alive(pid) {
    try {
        process.kill(pid, 0);
        return true;
    } catch {
        return false;
    }
}

async function talkWith(name, makeClient, makeTransport, makeCall) {
    const root = makeRoot();
    const talk = [];
    const transport = record(
        makeTransport({ command: program, args: ['mcp', 'serve', '--root', root], stderr: 'inherit' }), talk);
    const client = makeClient();
    await client.connect(transport);
    const pid = transport.pid;
    await converse(client, makeCall(client), root);
    await client.close();   // the end of the server's input
    for (let i = 0; i < 50 && alive(pid); ++i) await wait(100);
    assert.ok(!alive(pid), 'the server ends with its input');
    keepTalk(name, talk, root);
    rmSync(root, { recursive: true });
    console.log(`ok  ${name}: ${talk.length} messages`);
}

const about = { name: 'interop', version: '1' };
let ran = 0;

const first = await load('@modelcontextprotocol/sdk/client/index.js');
if (first) {
    const { StdioClientTransport } = await load('@modelcontextprotocol/sdk/client/stdio.js');
    await talkWith('sdk-1', () => new first.Client(about), (options) => new StdioClientTransport(options),
        (client) => (tool, given, options) => client.callTool({ name: tool, arguments: given }, undefined, options));
    ++ran;
} else console.log('--  @modelcontextprotocol/sdk is not there');

const second = await load('@modelcontextprotocol/client');
if (second) {
    const { StdioClientTransport } = await load('@modelcontextprotocol/client/stdio');
    for (const [name, mode] of [['client-2', { pin: '2026-07-28' }], ['client-2-session', 'legacy']]) {
        await talkWith(name, () => new second.Client(about, { versionNegotiation: { mode } }),
            (options) => new StdioClientTransport(options),
            (client) => (tool, given, options) => client.callTool({ name: tool, arguments: given }, options));
        ++ran;
    }
} else console.log('--  @modelcontextprotocol/client is not there');

const inspector = join(folder, 'node_modules/.bin/mcp-inspector');
if (existsSync(inspector)) {
    const root = makeRoot();
    const ask = (...words) => {
        const asked = spawnSync(inspector, ['--cli', program, 'mcp', 'serve', '--root', root, ...words],
            { encoding: 'utf8', timeout: 60_000 });
        assert.equal(asked.status, 0, asked.stderr + asked.stdout);
        return JSON.parse(asked.stdout);
    };
    assert.equal(ask('--method', 'tools/list').tools.length, 14);
    assert.ok(ask('--method', 'resources/list').resources.length > 0);
    assert.equal(ask('--method', 'prompts/list').prompts.length, 3);
    const told = ask('--method', 'tools/call', '--tool-name', 'describe', '--tool-arg', 'path=small.json', 'at=0.5');
    assert.ok(!told.isError && told.content[0].text.includes('Hello'));
    const wrong = ask('--method', 'tools/call', '--tool-name', 'describe', '--tool-arg', 'path=/etc/passwd');
    assert.equal(wrong.isError, true);
    rmSync(root, { recursive: true });
    console.log('ok  inspector');
    ++ran;
} else console.log('--  @modelcontextprotocol/inspector is not there');

if (ran === 0) {
    console.error('No client could be had; see what npm says in ' + folder + '/npm.log.');
    process.exit(1);
}
