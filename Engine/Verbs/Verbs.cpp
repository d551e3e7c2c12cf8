#include "Engine/Verbs/AuditVerb.h"
#include "Engine/Verbs/BeatsVerb.h"
#include "Engine/Verbs/BrandVerb.h"
#include "Engine/Verbs/CacheVerb.h"
#include "Engine/Verbs/CaptionsVerb.h"
#include "Engine/Verbs/CheckVerb.h"
#include "Engine/Verbs/CompletionVerb.h"
#include "Engine/Verbs/DemoVerb.h"
#include "Engine/Verbs/DescribeVerb.h"
#include "Engine/Verbs/DiffVerb.h"
#include "Engine/Verbs/EditVerb.h"
#include "Engine/Verbs/JoinVerb.h"
#include "Engine/Verbs/LintVerb.h"
#include "Engine/Verbs/ManualVerb.h"
#include "Engine/Verbs/McpInstallVerb.h"
#include "Engine/Verbs/McpServeVerb.h"
#include "Engine/Verbs/McpStatusVerb.h"
#include "Engine/Verbs/MeasureVerb.h"
#include "Engine/Verbs/NewVerb.h"
#include "Engine/Verbs/PackVerb.h"
#include "Engine/Verbs/PresetsVerb.h"
#include "Engine/Verbs/ProbeVerb.h"
#include "Engine/Verbs/ReadVerb.h"
#include "Engine/Verbs/ReelAuthorVerb.h"
#include "Engine/Verbs/ReelDescribeVerb.h"
#include "Engine/Verbs/ReelLintVerb.h"
#include "Engine/Verbs/ReelNewVerb.h"
#include "Engine/Verbs/ReelProbeVerb.h"
#include "Engine/Verbs/ReelRenderVerb.h"
#include "Engine/Verbs/ReelSheetVerb.h"
#include "Engine/Verbs/ReelSidecarVerb.h"
#include "Engine/Verbs/ReelStillVerb.h"
#include "Engine/Verbs/RenderVerb.h"
#include "Engine/Verbs/ResolveVerb.h"
#include "Engine/Verbs/RunVerb.h"
#include "Engine/Verbs/SchemaVerb.h"
#include "Engine/Verbs/SheetVerb.h"
#include "Engine/Verbs/StillVerb.h"
#include "Engine/Verbs/TeaserVerb.h"
#include "Engine/Verbs/ThemeVerb.h"
#include "Engine/Verbs/TimelineVerb.h"

namespace tavix::engine {

namespace {

template <class V> std::unique_ptr<Verb> make() { return std::make_unique<V>(); }

constexpr VerbEntry entries[] = {
    {"new", "Write a document to start from: a small one, or a template.",
        "tavix new hello.tavixcomp --template teaser --size 1080x1920", make<NewVerb>},
    {"lint", "Judge a document: errors, and what will not look right.", "tavix lint hello.tavixcomp --json",
        make<LintVerb>},
    {"describe", "Tell what a moment of a film shows, and where, without drawing it.",
        "tavix describe hello.tavixcomp --at 1.5", make<DescribeVerb>},
    {"check", "Judge all there is of a document, and mend what is certain.",
        "tavix check hello.tavixcomp --fix", make<CheckVerb>},
    {"read", "Print a document or a part of it, and its revision.",
        "tavix read hello.tavixcomp --pointer /scenes/0 --depth 2", make<ReadVerb>},
    {"edit", "Change a document by a JSON Patch, whole or not at all.",
        "tavix edit hello.tavixcomp --pointer /scenes/0/durationSec --value 3", make<EditVerb>},
    {"diff", "Tell how two documents differ, and which times of the film it touches.",
        "tavix diff old.tavixcomp new.tavixcomp --sheet changes.png", make<DiffVerb>},
    {"audit", "Open the films of a document and tell which end too early.", "tavix audit hello.tavixcomp",
        make<AuditVerb>},
    {"render", "Render a document to a film or an animated GIF.",
        "tavix render hello.tavixcomp -o hello.mp4 --effort best", make<RenderVerb>},
    {"join", "Join the segments of a film that were rendered one by one.",
        "tavix join hello.tavixcomp --from segments/ -o hello.mp4", make<JoinVerb>},
    {"cache", "Tell what renders have kept for the next ones, or remove it.", "tavix cache --clear",
        make<CacheVerb>},
    {"still", "Render one moment of a document to a picture.",
        "tavix still hello.tavixcomp --scene card --local 1.5 -o card.png", make<StillVerb>},
    {"sheet", "Render a contact sheet: the whole film at a glance.",
        "tavix sheet hello.tavixcomp --scene card --every 0.1 --annotate", make<SheetVerb>},
    {"resolve", "Print the document as the renderer sees it.",
        "tavix resolve hello.tavixcomp > resolved.json", make<ResolveVerb>},
    {"pack", "Make a bundle of a document and the files that it refers to.",
        "tavix pack composition.json -o hello.tavixcomp", make<PackVerb>},
    {"captions", "Write the texts of a film as captions, or take captions into it.",
        "tavix captions hello.tavixcomp -o hello.srt", make<CaptionsVerb>},
    {"timeline", "Write the cuts of a film for editing programs, as OpenTimelineIO.",
        "tavix timeline hello.tavixcomp -o hello.otio", make<TimelineVerb>},
    {"beats", "Hear the tempo, the first beat and the drop of a piece of music.",
        "tavix beats song.mp3 --write", make<BeatsVerb>},
    {"measure", "Rehearse a document: what its live preview costs on this machine.",
        "tavix measure hello.tavixcomp --stage 540x960", make<MeasureVerb>},
    {"schema", "Print the JSON Schema of documents or of a part of them.", "tavix schema layer",
        make<SchemaVerb>},
    {"probe", "Tell what a film or sound file holds.", "tavix probe clip.mov --json", make<ProbeVerb>},
    {"presets",
        "List the backgrounds, effects, transitions, motions, sounds and more that documents may name, or show one.",
        "tavix presets motions rise-up --preview rise-up.png", make<PresetsVerb>},
    {"teaser", "Render a film of headlines, without a recording.", "tavix teaser launch.json -o launch.mp4",
        make<TeaserVerb>},
    {"theme", "Dress a reel in the colours and the font of an application.",
        "tavix theme shop.tavixproj --brand-bundle shop-web/ --replace", make<ThemeVerb>},
    {"brand", "Tell the colours and fonts of an application.", "tavix brand shop-web/", make<BrandVerb>},
    {"run", "Play a flow on a web page and record it, with no screen.",
        "tavix run flow.json --url https://app.example --device iphone-16-pro -o app.tavixproj",
        make<RunVerb>},
    {"demo", "Record a flow on a web page and make the film of it, in one go.",
        "tavix demo flow.json --url https://app.example -o app.mp4", make<DemoVerb>},
    {"mcp serve", "Serve agents over standard input and output, by the Model Context Protocol.",
        "tavix mcp serve --root films/", make<McpServeVerb>},
    {"mcp install", "Put the server and a short skill into a program that agents run in.",
        "tavix mcp install --host claude --global", make<McpInstallVerb>},
    {"mcp uninstall", "Take them out again.", "tavix mcp uninstall --host claude --global",
        make<McpUninstallVerb>},
    {"mcp status", "Tell which of those programs are here, and where the server is.",
        "tavix mcp status --json", make<McpStatusVerb>},
    {"reel author", "Make the document of a reel from a screen recording.",
        "tavix reel author shop.tavixproj --captions --background aurora", make<ReelAuthorVerb>},
    {"reel new", "Make a bundle of a recording and what lies beside it.",
        "tavix reel new shop.tavixproj --video shop.mov", make<ReelNewVerb>},
    {"reel lint", "Judge a flow: what is wrong, and what will not look good.",
        "tavix reel lint flow.json --json", make<ReelLintVerb>},
    {"reel probe", "Find the flashes and marks in the picture of a recording.",
        "tavix reel probe shop.tavixproj --json", make<ReelProbeVerb>},
    {"reel sidecar", "Make the sidecar of a recording from what its driver reported.",
        "tavix reel sidecar shop.mov --report done.json", make<ReelSidecarVerb>},
    {"reel render", "Render a reel to a film or an animated GIF.",
        "tavix reel render shop.tavixproj -o shop.mp4", make<ReelRenderVerb>},
    {"reel still", "Render one moment of a finished reel to a picture.",
        "tavix reel still shop.tavixproj --at 3.5 -o shop.png", make<ReelStillVerb>},
    {"reel sheet", "Render a contact sheet of a reel: the whole film at a glance.",
        "tavix reel sheet shop.tavixproj --every 0.5", make<ReelSheetVerb>},
    {"reel describe", "Tell what a reel does and when, or draw it.",
        "tavix reel describe shop.tavixproj --plot shop.png", make<ReelDescribeVerb>},
    {"completion", "Print what a shell needs to complete the words of the command.",
        "tavix completion bash > ~/.local/share/bash-completion/completions/tavix", make<CompletionVerb>},
    {"manual", "Print a page of the manual, for man.", "tavix manual render | man -l -", make<ManualVerb>},
};

}   // namespace

std::span<const VerbEntry> verbs() { return entries; }

}   // namespace tavix::engine
