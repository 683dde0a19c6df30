// SPDX-License-Identifier: Apache-2.0
// Sax2Parser: events, stopping, exceptions and the lifetime of its callbacks.
using System;
using System.Collections.Generic;
using System.IO;
using System.Text;
using System.Threading;

namespace ZuXml.Tests
{
    internal static class Sax2ParserTests
    {
        [Test]
        private static void EveryEventArrives()
        {
            using (var scratch = new Scratch())
            using (var parser = new Sax2Parser())
            {
                string path = scratch.File("items.xml");
                File.WriteAllText(path, RawSax2Tests.Items, new UTF8Encoding(false));
                var events = new List<string>();
                parser.StartDocument += () => events.Add("start-document");
                parser.EndDocument += () => events.Add("end-document");
                parser.StartElement += (depth, count, uri, local, qname) =>
                    events.Add(string.Format("start {0} {1} {2} {3} {4}", depth, count, uri, local, qname));
                parser.Attribute += (depth, index, uri, local, qname, type, value) =>
                    events.Add(string.Format("attribute {0} {1} [{2}] {3} {4} {5} {6}", depth, index, uri, local, qname, type,
                                             value));
                parser.AttributesDone += depth => events.Add("done " + depth);
                parser.EndElement += (depth, uri, local, qname, text) =>
                    events.Add(string.Format("end {0} {1} [{2}]", depth, qname, text));
                parser.Comment += (depth, text) => events.Add("comment " + depth + " " + text);
                parser.Diagnostic += (code, message) => events.Add("diagnostic " + code);
                parser.Load(path, progressive: false);
                string expected = "start-document\n" + RawSax2Tests.ItemsEvents + "\nend-document";
                Check.Equal(expected, string.Join("\n", events), "events");

                File.WriteAllText(path, "<a><b></a>");
                events.Clear();
                // A load that ends after errors it reported to the handler succeeds.
                parser.Load(path);
                Check.True(events.Contains("diagnostic " + Sax2Parser.FatalError), "the fatal error arrives");
                Check.Throws<ZuXmlException>(() => parser.Load(scratch.File("absent.xml")), "an absent file");
            }
        }

        [Test]
        private static void CallbacksSurviveCollectionsDuringALoad()
        {
            using (var scratch = new Scratch())
            using (var parser = new Sax2Parser())
            {
                string path = scratch.File("many.xml");
                RawSax2Tests.WriteMany(path, 500);
                int ends = 0;
                parser.EndElement += (depth, uri, local, qname, text) =>
                {
                    if (++ends % 50 == 0)
                    {
                        GC.Collect();
                        GC.WaitForPendingFinalizers();
                    }
                };
                parser.Load(path);
                Check.Equal(501, ends, "every end tag arrived");
            }
        }

        [Test]
        private static void StopFromAnotherThreadEndsAProgressiveLoad()
        {
            using (var scratch = new Scratch())
            using (var parser = new Sax2Parser())
            {
                string path = scratch.File("many.xml");
                RawSax2Tests.WriteMany(path, 20000);
                var reached = new ManualResetEventSlim();
                var stopped = new ManualResetEventSlim();
                int seen = 0;
                bool located = false;
                parser.StartElement += (depth, count, uri, local, qname) =>
                {
                    if (++seen != 10)
                        return;
                    ulong line, column;
                    located = parser.TryGetLocation(out line, out column) && line > 1;
                    // The load waits here until the other thread has asked it to stop.
                    reached.Set();
                    stopped.Wait();
                };
                var stopper = new Thread(() =>
                {
                    reached.Wait();
                    parser.Stop();
                    stopped.Set();
                });
                stopper.Start();
                parser.Load(path, progressive: true);
                stopper.Join();
                Check.True(seen >= 10 && seen < 20000, "the load stopped early: " + seen);
                Check.True(located, "the location was known during the load");
                ulong after, afterColumn;
                Check.True(!parser.TryGetLocation(out after, out afterColumn), "no location after the load");
            }
        }

        [Test]
        private static void AnExceptionInAHandlerStopsTheLoadAndIsThrown()
        {
            using (var scratch = new Scratch())
            using (var parser = new Sax2Parser())
            {
                string path = scratch.File("many.xml");
                RawSax2Tests.WriteMany(path, 20000);
                int calls = 0;
                parser.EndElement += (depth, uri, local, qname, text) =>
                {
                    if (++calls == 3)
                        throw new InvalidOperationException("enough");
                };
                try
                {
                    parser.Load(path);
                    Check.True(false, "the load should have thrown");
                }
                catch (InvalidOperationException thrown)
                {
                    Check.Equal("enough", thrown.Message, "the handler's exception");
                }
                Check.True(calls < 20000, "the load stopped early: " + calls);
            }
        }
    }
}
