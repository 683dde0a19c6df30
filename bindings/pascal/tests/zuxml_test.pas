// SPDX-License-Identifier: Apache-2.0
{ Every family of the interface through the zuxml unit, run against the
  library just built. Compiled twice, in the Delphi and the ObjFPC modes;
  prints each failed check and exits with 1 when there is one. }
program zuxml_test;

uses
  SysUtils, zuxml;

type
  TNodeGetterW = function(hDocument: TZuXmlDocument; hNode: TZuXmlNode; szBuffer: PWideChar;
    pnLength: PInt32): Int32; cdecl;
  TNodeGetterA = function(hDocument: TZuXmlDocument; hNode: TZuXmlNode; szBuffer: PAnsiChar;
    pnLength: PInt32): Int32; cdecl;

const
  { A G clef and a smiling face: each a surrogate pair in UTF-16. }
  NonBmp: UnicodeString = 'clef '#$D834#$DD1E', smile '#$D83D#$DE00;

var
  Failures: Integer = 0;
  Scratch: string;
  Events: UnicodeString;
  Context: Int32 = 4242;
  Seen: Integer;
  Located: Boolean;

procedure Check(Condition: Boolean; const What: string);
begin
  if not Condition then
  begin
    WriteLn('FAILED: ', What);
    Inc(Failures);
  end;
end;

{ A wide getter through the caller-buffer protocol, each step checked. }
function ReadW(Getter: TNodeGetterW; Document: TZuXmlDocument; Node: TZuXmlNode): UnicodeString;
var
  Length, Need: Int32;
  Buffer: array of WideChar;
begin
  Result := '';
  Length := 0;
  Check(Getter(Document, Node, nil, @Length) = 0, 'asking with no buffer answers 0');
  Need := Length;
  if Need <= 0 then
  begin
    Check(False, 'the length needed is reported');
    Exit;
  end;
  SetLength(Buffer, Need);
  Length := Need - 1;
  Check(Getter(Document, Node, @Buffer[0], @Length) = 0, 'a buffer one short answers 0');
  Check(Length = Need, 'and reports the same length');
  Check(Getter(Document, Node, @Buffer[0], @Length) = 1, 'a buffer of the reported length answers 1');
  Check(Length = Need, 'the length is left as it was');
  Result := UnicodeString(PWideChar(@Buffer[0]));
end;

function ReadA(Getter: TNodeGetterA; Document: TZuXmlDocument; Node: TZuXmlNode): AnsiString;
var
  Length: Int32;
  Buffer: array of AnsiChar;
begin
  Result := '';
  Length := 0;
  Check(Getter(Document, Node, nil, @Length) = 0, 'asking with no buffer answers 0');
  if Length <= 0 then
    Exit;
  SetLength(Buffer, Length);
  Check(Getter(Document, Node, @Buffer[0], @Length) = 1, 'a buffer of the reported length answers 1');
  Result := AnsiString(PAnsiChar(@Buffer[0]));
end;

procedure TestLifecycle;
begin
  Check(ZuXmlInit = 1, 'ZuXmlInit');
  Check(ZuXmlSax2Init = 1, 'ZuXmlSax2Init');
  Check(ZuXmlSax2Cleanup = 1, 'ZuXmlSax2Cleanup');
  Check(ZuXmlReleaseDocument(nil) = 1, 'releasing nil');
  Check(ZuXmlReleaseSax2Parser(nil) = 1, 'releasing a nil parser');
end;

procedure TestDocumentsAndWriting;
var
  Empty, Wide, Narrow: TZuXmlDocument;
  Bytes: AnsiString;
  Xml, Written: UnicodeString;
  Plain, Pretty, PlainA: UnicodeString;
  Length: Int32;
  Buffer: array[0..99] of WideChar;
begin
  Empty := ZuXmlCreateDocument;
  Check(Empty <> nil, 'an empty handle');
  Check(ZuXmlGetRootNode(Empty) = nil, 'an empty handle has no root');
  Length := 100;
  Check(ZuXmlWriteToStringW(Empty, @Buffer[0], @Length) = 0, 'nothing to write');
  Check(Length = 100, 'a failure leaves the length alone');

  Bytes := '<?xml version="1.0" encoding="UTF-8"?><a x="1">bytes</a>';
  Check(ZuXmlLoadFromBufA(Empty, PAnsiChar(Bytes), System.Length(Bytes)) = 1, 'LoadFromBufA');
  Check(ReadW(@ZuXmlGetNodeTextContentW, Empty, ZuXmlGetRootNode(Empty)) = 'bytes', 'text of the bytes');
  Xml := '<b>' + NonBmp + '</b>';
  Check(ZuXmlLoadFromBufW(Empty, PWideChar(Xml), System.Length(Xml)) = 1, 'LoadFromBufW');
  Check(ReadW(@ZuXmlGetNodeTextContentW, Empty, ZuXmlGetRootNode(Empty)) = NonBmp, 'text outside the BMP');
  Check(ZuXmlLoadFromBufW(Empty, PWideChar(Xml), 3) = 0, 'malformed text');

  Wide := ZuXmlCreateWriteDocumentW('root', 'urn:example:w', nil);
  Check(Wide <> nil, 'CreateWriteDocumentW');
  Check(ZuXmlCreateWriteDocumentW('not a name', nil, nil) = nil, 'an invalid root');
  Check(ZuXmlSetNodeTextContentW(Wide, ZuXmlGetRootNode(Wide), PWideChar(NonBmp)) = 1, 'SetTextW');
  Narrow := ZuXmlCreateWriteDocumentA('narrow', nil, 'narrow.dtd');
  Check(Narrow <> nil, 'CreateWriteDocumentA');
  Length := 0;
  Check(ZuXmlWriteToStringA(Narrow, nil, @Length) = 0, 'asking the length of the narrow document');
  SetLength(Bytes, Length - 1);
  Check(ZuXmlWriteToStringA(Narrow, PAnsiChar(Bytes), @Length) = 1, 'WriteToStringA');
  Check(Pos('<!DOCTYPE narrow SYSTEM "narrow.dtd">', string(Bytes)) > 0, 'the document type: ' + string(Bytes));
  Length := 0;
  Check(ZuXmlWriteToStringW(Wide, nil, @Length) = 0, 'asking the length of the document');
  Written := '';
  SetLength(Written, Length - 1);
  Check(ZuXmlWriteToStringW(Wide, PWideChar(Written), @Length) = 1, 'WriteToStringW');
  Check(Pos(NonBmp + '</root>', Written) > 0, 'the document holds its text');

  Plain := UnicodeString(Scratch + 'plain.xml');
  Pretty := UnicodeString(Scratch + 'pretty.xml');
  PlainA := UnicodeString(Scratch + 'plainA.xml');
  Check(ZuXmlWriteW(Wide, PWideChar(Pretty)) = 1, 'WriteW');
  Check(ZuXmlWriteNoPrettyW(Wide, PWideChar(Plain)) = 1, 'WriteNoPrettyW');
  Check(ZuXmlWriteA(Wide, PAnsiChar(AnsiString(Scratch + 'prettyA.xml'))) = 1, 'WriteA');
  Check(ZuXmlWriteNoPrettyA(Empty, PAnsiChar(AnsiString(PlainA))) = 0, 'no document to write');
  Check(ZuXmlWriteNoPrettyA(Wide, PAnsiChar(AnsiString(PlainA))) = 1, 'WriteNoPrettyA');
  Check(ZuXmlWriteW(Wide, PWideChar(UnicodeString(Scratch + 'no/such/dir.xml'))) = 0, 'an unwritable path');
  Check(ZuXmlLoadFromFileW(Empty, PWideChar(Plain)) = 1, 'LoadFromFileW');
  Check(ReadW(@ZuXmlGetNodeTextContentW, Empty, ZuXmlGetRootNode(Empty)) = NonBmp, 'the file''s text');
  Check(ZuXmlLoadFromFileA(Empty, PAnsiChar(AnsiString(Scratch + 'prettyA.xml'))) = 1, 'LoadFromFileA');
  Check(ZuXmlLoadFromFileA(Empty, PAnsiChar(AnsiString(Scratch + 'absent.xml'))) = 0, 'an absent file');
  Check(ZuXmlReleaseDocument(Empty) = 1, 'release');
  Check(ZuXmlReleaseDocument(Wide) = 1, 'release');
  Check(ZuXmlReleaseSax2Parser(Narrow) = 1, 'one entry releases either kind');
end;

procedure TestNodeReading;
var
  Doc: TZuXmlDocument;
  Root, B, D, Comment: TZuXmlNode;
  Xml: UnicodeString;
  Local, Prefix: array[0..9] of WideChar;
  LocalA, PrefixA: array[0..9] of AnsiChar;
  LocalLength, PrefixLength: Int32;
begin
  Xml := '<p:a xmlns:p="urn:p"><b>one</b><!--c--><p:d>two</p:d></p:a>';
  Doc := ZuXmlCreateDocument;
  Check(ZuXmlLoadFromBufW(Doc, PWideChar(Xml), System.Length(Xml)) = 1, 'load');
  Root := ZuXmlGetRootNode(Doc);
  Check(ZuXmlGetNodeType(Doc, Root) = ZUXML_ELEMENT_NODE, 'element type');
  Check(ZuXmlGetNodeType(Doc, ZuXmlGetParentNode(Doc, Root)) = ZUXML_DOCUMENT_NODE, 'the document above the root');
  Check(ZuXmlGetNodeType(Doc, nil) = 0, 'a nil node');
  B := ZuXmlGetFirstChild(Doc, Root);
  D := ZuXmlGetLastChild(Doc, Root);
  Comment := ZuXmlGetNextSibling(Doc, B);
  Check(ZuXmlGetPriviousSibling(Doc, D) = Comment, 'siblings meet');
  Check(ZuXmlGetNodeType(Doc, Comment) = ZUXML_COMMENT_NODE, 'comment type');
  Check(ZuXmlGetFirstChild(Doc, nil) = B, 'nil reads as the root');
  Check(ZuXmlFindChildW(Doc, Root, 'p:d') = D, 'FindChildW');
  Check(ZuXmlFindChildA(Doc, nil, '#comment') = Comment, 'FindChildA');
  Check(ReadW(@ZuXmlGetNodeNameW, Doc, Root) = 'p:a', 'NameW');
  Check(ReadA(@ZuXmlGetNodeNameA, Doc, Comment) = '#comment', 'NameA');
  Check(ReadW(@ZuXmlGetNodeNamespaceW, Doc, D) = 'urn:p', 'NamespaceW');
  Check(ReadA(@ZuXmlGetNodeNamespaceA, Doc, D) = 'urn:p', 'NamespaceA');
  Check(ReadW(@ZuXmlGetNodeTextContentW, Doc, Root) = 'onetwo', 'TextContentW');
  Check(ReadA(@ZuXmlGetNodeTextContentA, Doc, D) = 'two', 'TextContentA');
  LocalLength := 10;
  PrefixLength := 10;
  Check(ZuXmlGetLocalNodeNameW(Doc, D, @Local[0], @LocalLength, @Prefix[0], @PrefixLength) = 1, 'LocalNodeNameW');
  Check((UnicodeString(PWideChar(@Local[0])) = 'd') and (UnicodeString(PWideChar(@Prefix[0])) = 'p'),
    'local name and prefix');
  LocalLength := 10;
  Check(ZuXmlGetLocalNodeNameA(Doc, D, @LocalA[0], @LocalLength, @PrefixA[0], @PrefixLength) = 1, 'LocalNodeNameA');
  Check((AnsiString(PAnsiChar(@LocalA[0])) = 'd') and (AnsiString(PAnsiChar(@PrefixA[0])) = 'p'),
    'narrow local name and prefix');
  ZuXmlReleaseDocument(Doc);
end;

procedure TestNodeEditing;
var
  Doc, Other: TZuXmlDocument;
  Root, Wide, Narrow, Copy: TZuXmlNode;
  Xml: UnicodeString;
begin
  Doc := ZuXmlCreateWriteDocumentW('root', nil, nil);
  Root := ZuXmlGetRootNode(Doc);
  Wide := ZuXmlAddNodeW(Doc, Root, 'w', ZUXML_ELEMENT_NODE, PWideChar(NonBmp), nil);
  Narrow := ZuXmlAddNodeA(Doc, nil, 'n', ZUXML_ELEMENT_NODE, 'narrow', nil);
  Check((Wide <> nil) and (Narrow <> nil), 'AddNodeW and AddNodeA');
  Check(ZuXmlAddNodeW(Doc, Root, 't', ZUXML_TEXT_NODE, 'x', nil) = nil, 'only elements are added');
  Check(ZuXmlAddCommentW(Doc, Root, PWideChar(NonBmp)) <> nil, 'AddCommentW');
  Check(ZuXmlAddCommentA(Doc, nil, 'narrow comment') <> nil, 'AddCommentA');
  Check(ZuXmlSetNodeTextContentA(Doc, Narrow, 'changed') = 1, 'SetNodeTextContentA');
  Other := ZuXmlCreateWriteDocumentA('other', nil, nil);
  Copy := ZuXmlAddNodeExisting(Other, nil, Wide, 1);
  Check(Copy <> nil, 'AddNodeExisting');
  Check(ReadW(@ZuXmlGetNodeTextContentW, Other, Copy) = NonBmp, 'the copy has the text');
  Check(ZuXmlRemoveNode(Doc, Narrow) = 1, 'RemoveNode');
  Check(ZuXmlRemoveNode(Doc, nil) = 0, 'nil is not removed');
  Xml := ReadW(@ZuXmlGetNodeTextContentW, Doc, Root);
  Check(Xml = NonBmp, 'the removed element''s text is gone');
  ZuXmlReleaseDocument(Other);
  ZuXmlReleaseDocument(Doc);
end;

procedure TestAttributes;
var
  Doc: TZuXmlDocument;
  Root: TZuXmlNode;
  Buffer: array[0..63] of WideChar;
  BufferA: array[0..63] of AnsiChar;
  Length: Int32;
begin
  Doc := ZuXmlCreateWriteDocumentW('root', nil, nil);
  Root := ZuXmlGetRootNode(Doc);
  Check(ZuXmlGetNodeAttributeCount(Doc, Root) = 0, 'no attribute yet');
  Check(ZuXmlGetNodeAttributeCount(Doc, nil) = -1, '-1 for a nil node');
  Check(ZuXmlAddNodeAttributeW(Doc, Root, 'w', PWideChar(NonBmp)) = 1, 'AddNodeAttributeW');
  Check(ZuXmlAddNodeAttributeA(Doc, nil, 'n', 'narrow') = 1, 'AddNodeAttributeA');
  Check(ZuXmlGetNodeAttributeCount(Doc, Root) = 2, 'two attributes');
  Length := 64;
  Check(ZuXmlGetNodeAttributeValueNameW(Doc, Root, 'w', @Buffer[0], @Length) = 1, 'ValueNameW');
  Check(UnicodeString(PWideChar(@Buffer[0])) = NonBmp, 'the value outside the BMP');
  Length := 64;
  Check(ZuXmlGetNodeAttributeValueNameA(Doc, Root, 'n', @BufferA[0], @Length) = 1, 'ValueNameA');
  Check(AnsiString(PAnsiChar(@BufferA[0])) = 'narrow', 'the narrow value');
  Length := 64;
  Check(ZuXmlGetNodeAttributeNameW(Doc, Root, 0, @Buffer[0], @Length) = 1, 'NameW');
  Length := 64;
  Check(ZuXmlGetNodeAttributeNameA(Doc, Root, 0, @BufferA[0], @Length) = 1, 'NameA');
  Check(UnicodeString(PWideChar(@Buffer[0])) = UnicodeString(AnsiString(PAnsiChar(@BufferA[0]))), 'names agree');
  Length := 64;
  Check(ZuXmlGetNodeAttributeValueIndexW(Doc, Root, 1, @Buffer[0], @Length) = 1, 'ValueIndexW');
  Length := 64;
  Check(ZuXmlGetNodeAttributeValueIndexA(Doc, Root, 1, @BufferA[0], @Length) = 1, 'ValueIndexA');
  Length := 64;
  Check(ZuXmlGetNodeAttributeValueIndexW(Doc, Root, 5, @Buffer[0], @Length) = 0, 'an index out of range');
  Check(ZuXmlSetNodeAttributeValueW(Doc, Root, 'w', 'changed') = 1, 'SetNodeAttributeValueW');
  Check(ZuXmlSetNodeAttributeValueA(Doc, Root, 'n', 'changed') = 1, 'SetNodeAttributeValueA');
  Check(ZuXmlSetNodeAttributeValueW(Doc, Root, 'absent', 'x') = 0, 'an absent attribute is not added');
  Check(ZuXmlRemoveAttributeNameW(Doc, Root, 'w') = 1, 'RemoveAttributeNameW');
  Check(ZuXmlRemoveAttributeNameA(Doc, Root, 'absent') = 1, 'absent names are removed too');
  Check(ZuXmlRemoveAttributeIndex(Doc, Root, 0) = 1, 'RemoveAttributeIndex');
  Check(ZuXmlGetNodeAttributeCount(Doc, Root) = 0, 'all removed');
  ZuXmlReleaseDocument(Doc);
end;

{ SAX2 callbacks: they write the events down in Events. }
procedure OnStartDocument(hParser: TZuXmlSax2Parser; pContext: Pointer); cdecl;
begin
  if PInt32(pContext)^ = 4242 then
    Events := Events + 'start-document;';
end;

procedure OnEndDocument(hParser: TZuXmlSax2Parser; pContext: Pointer); cdecl;
begin
  Events := Events + 'end-document;';
end;

procedure OnStartElementW(hParser: TZuXmlSax2Parser; pContext: Pointer; nDepth, nAttributes: Int32;
  szUri, szLocalName, szQName: PWideChar); cdecl;
var
  Line, Column: UInt64;
begin
  Events := Events + 'start ' + UnicodeString(IntToStr(nDepth)) + ' ' + UnicodeString(szQName) + ';';
  Inc(Seen);
  if ZuXmlGetSax2CurrentLocation(hParser, @Line, @Column) = 1 then
    Located := Line >= 1;
end;

procedure OnAttributeW(hParser: TZuXmlSax2Parser; pContext: Pointer; nDepth, nIndex: Int32;
  szUri, szLocalName, szQName, szType, szValue: PWideChar); cdecl;
begin
  Events := Events + UnicodeString(szQName) + '=' + UnicodeString(szValue) + ';';
end;

procedure OnAttributesDone(hParser: TZuXmlSax2Parser; pContext: Pointer; nDepth: Int32); cdecl;
begin
  Events := Events + 'done;';
end;

procedure OnEndElementW(hParser: TZuXmlSax2Parser; pContext: Pointer; nDepth: Int32;
  szUri, szLocalName, szQName, szText: PWideChar); cdecl;
begin
  Events := Events + 'end ' + UnicodeString(szQName) + ' [' + UnicodeString(szText) + '];';
end;

procedure OnCommentW(hParser: TZuXmlSax2Parser; pContext: Pointer; nDepth: Int32; szText: PWideChar); cdecl;
begin
  Events := Events + 'comment ' + UnicodeString(szText) + ';';
end;

procedure OnDiagnosticW(hParser: TZuXmlSax2Parser; pContext: Pointer; nCode: Int32; szMessage: PWideChar); cdecl;
begin
  Events := Events + 'diagnostic ' + UnicodeString(IntToStr(nCode)) + ';';
end;

procedure OnAttributeA(hParser: TZuXmlSax2Parser; pContext: Pointer; nDepth, nIndex: Int32;
  szUri, szLocalName, szQName, szType, szValue: PAnsiChar); cdecl;
begin
  Events := Events + UnicodeString(AnsiString(szQName)) + ':=' + UnicodeString(AnsiString(szValue)) + ';';
end;

procedure OnStartElementA(hParser: TZuXmlSax2Parser; pContext: Pointer; nDepth, nAttributes: Int32;
  szUri, szLocalName, szQName: PAnsiChar); cdecl;
begin
  Events := Events + 'narrow ' + UnicodeString(AnsiString(szQName)) + ';';
end;

procedure OnEndElementA(hParser: TZuXmlSax2Parser; pContext: Pointer; nDepth: Int32;
  szUri, szLocalName, szQName, szText: PAnsiChar); cdecl;
begin
  Events := Events + 'narrow end [' + UnicodeString(AnsiString(szText)) + '];';
end;

procedure OnCommentA(hParser: TZuXmlSax2Parser; pContext: Pointer; nDepth: Int32; szText: PAnsiChar); cdecl;
begin
  Events := Events + 'narrow comment;';
end;

procedure OnDiagnosticA(hParser: TZuXmlSax2Parser; pContext: Pointer; nCode: Int32; szMessage: PAnsiChar); cdecl;
begin
  Events := Events + 'narrow diagnostic;';
end;

procedure OnStartElementStop(hParser: TZuXmlSax2Parser; pContext: Pointer; nDepth, nAttributes: Int32;
  szUri, szLocalName, szQName: PWideChar); cdecl;
begin
  Inc(Seen);
  if Seen = 10 then
    ZuXmlSax2StopLoadFromFile(hParser);
end;

procedure WriteText(const Path, Text: string);
var
  Output: TextFile;
begin
  AssignFile(Output, Path);
  Rewrite(Output);
  Write(Output, Text);
  CloseFile(Output);
end;

procedure TestSax2;
var
  Parser: TZuXmlSax2Parser;
  Doc: TZuXmlDocument;
  Path, Many: string;
  Line, Column: UInt64;
  Index: Integer;
  Text: string;
begin
  { A file with text outside the BMP, written by the library in UTF-8. }
  Doc := ZuXmlCreateDocument;
  Text := '<a x="1"><!--c--><b>' + '</b></a>';
  Check(ZuXmlLoadFromBufA(Doc, PAnsiChar(AnsiString(Text)), System.Length(Text)) = 1, 'load');
  Check(ZuXmlSetNodeTextContentW(Doc, ZuXmlFindChildW(Doc, nil, 'b'), PWideChar(NonBmp)) = 1, 'set the text');
  Path := Scratch + 'sax.xml';
  Check(ZuXmlWriteNoPrettyA(Doc, PAnsiChar(AnsiString(Path))) = 1, 'write the file');
  ZuXmlReleaseDocument(Doc);

  Parser := ZuXmlCreateSax2Parser(@Context);
  Check(Parser <> nil, 'CreateSax2Parser');
  Check(ZuXmlSetSax2ParserCallbacksW(Parser, @OnStartDocument, @OnEndDocument, @OnStartElementW, @OnAttributeW,
    @OnAttributesDone, @OnEndElementW, @OnCommentW, @OnDiagnosticW) = 1, 'SetSax2ParserCallbacksW');
  { The narrow attribute entry makes AttributesDone arrive; the wide entries serve every event. }
  Check(ZuXmlSetSax2ParserCallbacksA(Parser, nil, nil, @OnStartElementA, @OnAttributeA, @OnAttributesDone,
    @OnEndElementA, @OnCommentA, @OnDiagnosticA) = 1, 'SetSax2ParserCallbacksA');
  Events := '';
  Located := False;
  Check(ZuXmlSax2LoadFromFileW(Parser, PWideChar(UnicodeString(Path)), 0) = 1, 'Sax2LoadFromFileW');
  Check(Events = 'start-document;start 0 a;x=1;done;comment c;start 1 b;done;end b [' + NonBmp +
    '];end a [];end-document;', 'wide events: ' + string(Events));
  Check(Located, 'the location is known inside a callback');
  Check(ZuXmlGetSax2CurrentLocation(Parser, @Line, @Column) = 0, 'and not after the load');

  { Only narrow entries: the narrow table serves. }
  Check(ZuXmlSetSax2ParserCallbacksW(Parser, nil, nil, nil, nil, nil, nil, nil, nil) = 1, 'clearing the wide table');
  Events := '';
  Check(ZuXmlSax2LoadFromFileA(Parser, PAnsiChar(AnsiString(Path)), 1) = 1, 'Sax2LoadFromFileA');
  Check(Copy(Events, 1, 29) = 'narrow a;x:=1;done;narrow com', 'narrow events: ' + string(Events));

  { A diagnostic from a malformed file. }
  WriteText(Scratch + 'broken.xml', '<a><b></a>');
  Check(ZuXmlSetSax2ParserCallbacksW(Parser, nil, nil, nil, nil, nil, nil, nil, @OnDiagnosticW) = 1, 'diagnostics');
  Events := '';
  ZuXmlSax2LoadFromFileW(Parser, PWideChar(UnicodeString(Scratch + 'broken.xml')), 0);
  Check(Pos('diagnostic 21;', string(Events)) > 0, 'a fatal error arrives as 21: ' + string(Events));

  { A stop from a callback ends a progressive load. }
  Many := '<items>';
  for Index := 1 to 20000 do
    Many := Many + '<item/>';
  WriteText(Scratch + 'many.xml', Many + '</items>');
  Check(ZuXmlSetSax2ParserCallbacksA(Parser, nil, nil, nil, nil, nil, nil, nil, nil) = 1, 'clearing the narrow table');
  Check(ZuXmlSetSax2ParserCallbacksW(Parser, nil, nil, @OnStartElementStop, nil, nil, nil, nil, nil) = 1, 'stopper');
  Seen := 0;
  Check(ZuXmlSax2LoadFromFileW(Parser, PWideChar(UnicodeString(Scratch + 'many.xml')), 1) = 1, 'a stopped load');
  Check((Seen >= 10) and (Seen < 20001), 'the load stopped early: ' + IntToStr(Seen));
  Check(ZuXmlReleaseSax2Parser(Parser) = 1, 'ReleaseSax2Parser');
end;

procedure RemoveScratch;
var
  Found: TSearchRec;
begin
  if FindFirst(Scratch + '*', faAnyFile, Found) = 0 then
  begin
    repeat
      if (Found.Attr and faDirectory) = 0 then
        DeleteFile(Scratch + Found.Name);
    until FindNext(Found) <> 0;
    FindClose(Found);
  end;
  RemoveDir(Scratch);
end;

begin
  Scratch := IncludeTrailingPathDelimiter(GetTempDir(False)) + 'zuxml_pascal_' + IntToStr(GetProcessID) +
    PathDelim;
  ForceDirectories(Scratch);
  TestLifecycle;
  TestDocumentsAndWriting;
  TestNodeReading;
  TestNodeEditing;
  TestAttributes;
  TestSax2;
  Check(ZuXmlCleanup = 1, 'ZuXmlCleanup');
  RemoveScratch;
  if Failures > 0 then
  begin
    WriteLn(Failures, ' checks failed');
    Halt(1);
  end;
  WriteLn('all checks passed');
end.
