// SPDX-License-Identifier: Apache-2.0
// The .NET binding's tests: a console program run by CTest under Mono
// against the library just built. Each test is a method; a failed check
// throws, the program reports every failure and exits non-zero.
using System;
using System.Collections.Generic;
using System.IO;
using System.Linq;
using System.Reflection;

namespace ZuXml.Tests
{
    [AttributeUsage(AttributeTargets.Method)]
    internal sealed class TestAttribute : Attribute { }

    internal sealed class CheckFailed : Exception
    {
        public CheckFailed(string message) : base(message) { }
    }

    internal static class Check
    {
        public static void True(bool condition, string what)
        {
            if (!condition)
                throw new CheckFailed(what);
        }

        public static void Equal<T>(T expected, T actual, string what)
        {
            if (!EqualityComparer<T>.Default.Equals(expected, actual))
                throw new CheckFailed(string.Format("{0}: expected <{1}>, got <{2}>", what, expected, actual));
        }

        public static void Throws<E>(Action action, string what) where E : Exception
        {
            try
            {
                action();
            }
            catch (E)
            {
                return;
            }
            catch (Exception other)
            {
                throw new CheckFailed(what + ": threw " + other.GetType().Name + " instead of " + typeof(E).Name);
            }
            throw new CheckFailed(what + ": nothing thrown, expected " + typeof(E).Name);
        }
    }

    internal static class Texts
    {
        public const string Greek = "Καλημέρα, Grüße, 日本語";
        // Each of these is a surrogate pair in UTF-16.
        public const string NonBmp = "clef \U0001D11E, smile \U0001F600, ideograph \U0002000B";
    }

    /// <summary>A directory of its own for each test, removed afterwards.</summary>
    internal sealed class Scratch : IDisposable
    {
        public readonly string Directory;

        public Scratch()
        {
            Directory = Path.Combine(Path.GetTempPath(), "zuxml_net_" + Guid.NewGuid().ToString("N"));
            System.IO.Directory.CreateDirectory(Directory);
        }

        public string File(string name)
        {
            return Path.Combine(Directory, name);
        }

        public void Dispose()
        {
            System.IO.Directory.Delete(Directory, true);
        }
    }

    internal static class Program
    {
        private static int Main(string[] args)
        {
            var tests = typeof(Program).Assembly.GetTypes()
                .SelectMany(type => type.GetMethods(BindingFlags.Static | BindingFlags.Public | BindingFlags.NonPublic))
                .Where(method => method.GetCustomAttributes(typeof(TestAttribute), false).Length > 0)
                .Where(method => args.Length == 0 || args.Any(name => method.Name.Contains(name)))
                .OrderBy(method => method.DeclaringType.Name + "." + method.Name)
                .ToList();
            int failed = 0;
            foreach (MethodInfo test in tests)
            {
                string name = test.DeclaringType.Name + "." + test.Name;
                try
                {
                    test.Invoke(null, null);
                    Console.WriteLine("ok      " + name);
                }
                catch (TargetInvocationException thrown)
                {
                    failed++;
                    Console.WriteLine("FAILED  " + name + ": " + thrown.InnerException);
                }
            }
            Console.WriteLine("{0} tests, {1} failed", tests.Count, failed);
            return failed == 0 && tests.Count > 0 ? 0 : 1;
        }
    }
}
