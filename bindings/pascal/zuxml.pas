// SPDX-License-Identifier: Apache-2.0
{ ZuXml for Free Pascal and Delphi: the 65 functions of the library with the
  types of include/zuxml.h. Compiles in the Delphi and the ObjFPC modes.

  On Windows each function is bound to ZUXML.dll by its fixed ordinal; on
  other systems to libzuxml by name. Every function uses the C calling
  convention (cdecl).

  Types: handles are untyped pointers; int32_t is Int32, uint32_t UInt32, the
  node type Word, SAX2 positions PUInt64. Wide text is PWideChar, 16-bit
  UTF-16 units on every target (the library's own characters); narrow text is
  PAnsiChar in the C runtime's current locale. Getters of text take a buffer
  and a PInt32 to its length in characters: a length of L + 1 or more gets
  the text of L characters and its terminator (answer 1); a smaller one
  (0 with a nil buffer included) gets the length needed written back and
  answer 0. A failed operation answers 0 and leaves the length alone.

  The library keeps only the callback pointers it is given: the procedures
  must stay valid while a parser may call them (plain procedures always do). }
unit zuxml;

interface

const
  ZUXML_VERSION_MAJOR = 1;
  ZUXML_VERSION_MINOR = 0;
  ZUXML_VERSION_PATCH = 0;

  { Severities passed to the diagnostic callbacks; the warning is deliberately last. }
  SAX2_ERROR = 20;
  SAX2_FATAL_ERROR = 21;
  SAX2_WARNING = 22;

  { Node types as ZuXmlGetNodeType answers them (0 for failure). }
  ZUXML_ELEMENT_NODE = 1;
  ZUXML_ATTRIBUTE_NODE = 2;
  ZUXML_TEXT_NODE = 3;
  ZUXML_CDATA_SECTION_NODE = 4;
  ZUXML_PROCESSING_INSTRUCTION_NODE = 7;
  ZUXML_COMMENT_NODE = 8;
  ZUXML_DOCUMENT_NODE = 9;
  ZUXML_DOCUMENT_TYPE_NODE = 10;

type
  { A document handle, released with ZuXmlReleaseDocument. }
  TZuXmlDocument = Pointer;
  { A node of a document's tree; nil means no node. Never released by the caller. }
  TZuXmlNode = Pointer;
  { A SAX2 streaming parser handle, released with ZuXmlReleaseSax2Parser. }
  TZuXmlSax2Parser = Pointer;

  { SAX2 callbacks: each receives the parser handle and the context given to
    ZuXmlCreateSax2Parser first. Their strings live until the callback returns. }
  TZuXmlSax2StartDocumentCallback = procedure(hParser: TZuXmlSax2Parser; pContext: Pointer); cdecl;
  TZuXmlSax2EndDocumentCallback = procedure(hParser: TZuXmlSax2Parser; pContext: Pointer); cdecl;
  TZuXmlSax2StartElementCallbackW = procedure(hParser: TZuXmlSax2Parser; pContext: Pointer;
    nDepth, nAttributes: Int32; szUri, szLocalName, szQName: PWideChar); cdecl;
  TZuXmlSax2StartElementCallbackA = procedure(hParser: TZuXmlSax2Parser; pContext: Pointer;
    nDepth, nAttributes: Int32; szUri, szLocalName, szQName: PAnsiChar); cdecl;
  TZuXmlSax2AttributeCallbackW = procedure(hParser: TZuXmlSax2Parser; pContext: Pointer;
    nDepth, nIndex: Int32; szUri, szLocalName, szQName, szType, szValue: PWideChar); cdecl;
  TZuXmlSax2AttributeCallbackA = procedure(hParser: TZuXmlSax2Parser; pContext: Pointer;
    nDepth, nIndex: Int32; szUri, szLocalName, szQName, szType, szValue: PAnsiChar); cdecl;
  TZuXmlSax2AttributesDoneCallback = procedure(hParser: TZuXmlSax2Parser; pContext: Pointer;
    nDepth: Int32); cdecl;
  TZuXmlSax2EndElementCallbackW = procedure(hParser: TZuXmlSax2Parser; pContext: Pointer;
    nDepth: Int32; szUri, szLocalName, szQName, szText: PWideChar); cdecl;
  TZuXmlSax2EndElementCallbackA = procedure(hParser: TZuXmlSax2Parser; pContext: Pointer;
    nDepth: Int32; szUri, szLocalName, szQName, szText: PAnsiChar); cdecl;
  TZuXmlSax2CommentCallbackW = procedure(hParser: TZuXmlSax2Parser; pContext: Pointer;
    nDepth: Int32; szText: PWideChar); cdecl;
  TZuXmlSax2CommentCallbackA = procedure(hParser: TZuXmlSax2Parser; pContext: Pointer;
    nDepth: Int32; szText: PAnsiChar); cdecl;
  TZuXmlSax2DiagnosticCallbackW = procedure(hParser: TZuXmlSax2Parser; pContext: Pointer;
    nCode: Int32; szMessage: PWideChar); cdecl;
  TZuXmlSax2DiagnosticCallbackA = procedure(hParser: TZuXmlSax2Parser; pContext: Pointer;
    nCode: Int32; szMessage: PAnsiChar); cdecl;

{ Lifecycle }
function ZuXmlInit: Int32; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 100{$ELSE}'zuxml' name 'ZuXmlInit'{$ENDIF};
function ZuXmlSax2Init: Int32; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 135{$ELSE}'zuxml' name 'ZuXmlSax2Init'{$ENDIF};
function ZuXmlCleanup: Int32; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 101{$ELSE}'zuxml' name 'ZuXmlCleanup'{$ENDIF};
function ZuXmlSax2Cleanup: Int32; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 136{$ELSE}'zuxml' name 'ZuXmlSax2Cleanup'{$ENDIF};

{ Documents }
function ZuXmlCreateDocument: TZuXmlDocument; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 102{$ELSE}'zuxml' name 'ZuXmlCreateDocument'{$ENDIF};
function ZuXmlCreateWriteDocumentW(szRoot, szNamespace, szSystemId: PWideChar): TZuXmlDocument; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 700{$ELSE}'zuxml' name 'ZuXmlCreateWriteDocumentW'{$ENDIF};
function ZuXmlCreateWriteDocumentA(szRoot, szNamespace, szSystemId: PAnsiChar): TZuXmlDocument; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 600{$ELSE}'zuxml' name 'ZuXmlCreateWriteDocumentA'{$ENDIF};
function ZuXmlReleaseDocument(hDocument: TZuXmlDocument): Int32; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 104{$ELSE}'zuxml' name 'ZuXmlReleaseDocument'{$ENDIF};
function ZuXmlLoadFromFileW(hDocument: TZuXmlDocument; szPath: PWideChar): Int32; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 702{$ELSE}'zuxml' name 'ZuXmlLoadFromFileW'{$ENDIF};
function ZuXmlLoadFromFileA(hDocument: TZuXmlDocument; szPath: PAnsiChar): Int32; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 602{$ELSE}'zuxml' name 'ZuXmlLoadFromFileA'{$ENDIF};
function ZuXmlLoadFromBufA(hDocument: TZuXmlDocument; pBytes: Pointer; nLength: UInt32): Int32; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 601{$ELSE}'zuxml' name 'ZuXmlLoadFromBufA'{$ENDIF};
function ZuXmlLoadFromBufW(hDocument: TZuXmlDocument; szText: PWideChar; nLength: UInt32): Int32; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 701{$ELSE}'zuxml' name 'ZuXmlLoadFromBufW'{$ENDIF};

{ Writing }
function ZuXmlWriteW(hDocument: TZuXmlDocument; szPath: PWideChar): Int32; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 703{$ELSE}'zuxml' name 'ZuXmlWriteW'{$ENDIF};
function ZuXmlWriteA(hDocument: TZuXmlDocument; szPath: PAnsiChar): Int32; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 603{$ELSE}'zuxml' name 'ZuXmlWriteA'{$ENDIF};
function ZuXmlWriteNoPrettyW(hDocument: TZuXmlDocument; szPath: PWideChar): Int32; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 704{$ELSE}'zuxml' name 'ZuXmlWriteNoPrettyW'{$ENDIF};
function ZuXmlWriteNoPrettyA(hDocument: TZuXmlDocument; szPath: PAnsiChar): Int32; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 604{$ELSE}'zuxml' name 'ZuXmlWriteNoPrettyA'{$ENDIF};
function ZuXmlWriteToStringW(hDocument: TZuXmlDocument; szBuffer: PWideChar; pnLength: PInt32): Int32;
    cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 719{$ELSE}'zuxml' name 'ZuXmlWriteToStringW'{$ENDIF};
function ZuXmlWriteToStringA(hDocument: TZuXmlDocument; szBuffer: PAnsiChar; pnLength: PInt32): Int32;
    cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 619{$ELSE}'zuxml' name 'ZuXmlWriteToStringA'{$ENDIF};

{ Node reading }
function ZuXmlGetRootNode(hDocument: TZuXmlDocument): TZuXmlNode; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 118{$ELSE}'zuxml' name 'ZuXmlGetRootNode'{$ENDIF};
function ZuXmlGetParentNode(hDocument: TZuXmlDocument; hNode: TZuXmlNode): TZuXmlNode; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 119{$ELSE}'zuxml' name 'ZuXmlGetParentNode'{$ENDIF};
function ZuXmlGetPriviousSibling(hDocument: TZuXmlDocument; hNode: TZuXmlNode): TZuXmlNode; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 120{$ELSE}'zuxml' name 'ZuXmlGetPriviousSibling'{$ENDIF};
function ZuXmlGetNextSibling(hDocument: TZuXmlDocument; hNode: TZuXmlNode): TZuXmlNode; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 121{$ELSE}'zuxml' name 'ZuXmlGetNextSibling'{$ENDIF};
function ZuXmlGetFirstChild(hDocument: TZuXmlDocument; hNode: TZuXmlNode): TZuXmlNode; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 122{$ELSE}'zuxml' name 'ZuXmlGetFirstChild'{$ENDIF};
function ZuXmlGetLastChild(hDocument: TZuXmlDocument; hNode: TZuXmlNode): TZuXmlNode; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 123{$ELSE}'zuxml' name 'ZuXmlGetLastChild'{$ENDIF};
function ZuXmlFindChildW(hDocument: TZuXmlDocument; hParent: TZuXmlNode; szName: PWideChar): TZuXmlNode;
    cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 712{$ELSE}'zuxml' name 'ZuXmlFindChildW'{$ENDIF};
function ZuXmlFindChildA(hDocument: TZuXmlDocument; hParent: TZuXmlNode; szName: PAnsiChar): TZuXmlNode;
    cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 612{$ELSE}'zuxml' name 'ZuXmlFindChildA'{$ENDIF};
function ZuXmlGetNodeType(hDocument: TZuXmlDocument; hNode: TZuXmlNode): Word; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 114{$ELSE}'zuxml' name 'ZuXmlGetNodeType'{$ENDIF};
function ZuXmlGetNodeNameW(hDocument: TZuXmlDocument; hNode: TZuXmlNode; szBuffer: PWideChar;
    pnLength: PInt32): Int32; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 707{$ELSE}'zuxml' name 'ZuXmlGetNodeNameW'{$ENDIF};
function ZuXmlGetNodeNameA(hDocument: TZuXmlDocument; hNode: TZuXmlNode; szBuffer: PAnsiChar;
    pnLength: PInt32): Int32; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 607{$ELSE}'zuxml' name 'ZuXmlGetNodeNameA'{$ENDIF};
function ZuXmlGetLocalNodeNameW(hDocument: TZuXmlDocument; hNode: TZuXmlNode; szLocalName: PWideChar;
    pnLocalNameLength: PInt32; szPrefix: PWideChar; pnPrefixLength: PInt32): Int32; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 708{$ELSE}'zuxml' name 'ZuXmlGetLocalNodeNameW'{$ENDIF};
function ZuXmlGetLocalNodeNameA(hDocument: TZuXmlDocument; hNode: TZuXmlNode; szLocalName: PAnsiChar;
    pnLocalNameLength: PInt32; szPrefix: PAnsiChar; pnPrefixLength: PInt32): Int32; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 608{$ELSE}'zuxml' name 'ZuXmlGetLocalNodeNameA'{$ENDIF};
function ZuXmlGetNodeTextContentW(hDocument: TZuXmlDocument; hNode: TZuXmlNode; szBuffer: PWideChar;
    pnLength: PInt32): Int32; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 709{$ELSE}'zuxml' name 'ZuXmlGetNodeTextContentW'{$ENDIF};
function ZuXmlGetNodeTextContentA(hDocument: TZuXmlDocument; hNode: TZuXmlNode; szBuffer: PAnsiChar;
    pnLength: PInt32): Int32; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 609{$ELSE}'zuxml' name 'ZuXmlGetNodeTextContentA'{$ENDIF};
function ZuXmlGetNodeNamespaceW(hDocument: TZuXmlDocument; hNode: TZuXmlNode; szBuffer: PWideChar;
    pnLength: PInt32): Int32; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 710{$ELSE}'zuxml' name 'ZuXmlGetNodeNamespaceW'{$ENDIF};
function ZuXmlGetNodeNamespaceA(hDocument: TZuXmlDocument; hNode: TZuXmlNode; szBuffer: PAnsiChar;
    pnLength: PInt32): Int32; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 610{$ELSE}'zuxml' name 'ZuXmlGetNodeNamespaceA'{$ENDIF};

{ Node editing }
function ZuXmlAddNodeW(hDocument: TZuXmlDocument; hParent: TZuXmlNode; szName: PWideChar; nType: Word;
    szText, szNamespace: PWideChar): TZuXmlNode; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 706{$ELSE}'zuxml' name 'ZuXmlAddNodeW'{$ENDIF};
function ZuXmlAddNodeA(hDocument: TZuXmlDocument; hParent: TZuXmlNode; szName: PAnsiChar; nType: Word;
    szText, szNamespace: PAnsiChar): TZuXmlNode; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 606{$ELSE}'zuxml' name 'ZuXmlAddNodeA'{$ENDIF};
function ZuXmlAddCommentW(hDocument: TZuXmlDocument; hParent: TZuXmlNode; szText: PWideChar): TZuXmlNode;
    cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 705{$ELSE}'zuxml' name 'ZuXmlAddCommentW'{$ENDIF};
function ZuXmlAddCommentA(hDocument: TZuXmlDocument; hParent: TZuXmlNode; szText: PAnsiChar): TZuXmlNode;
    cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 605{$ELSE}'zuxml' name 'ZuXmlAddCommentA'{$ENDIF};
function ZuXmlAddNodeExisting(hDocument: TZuXmlDocument; hParent, hSource: TZuXmlNode;
    nDeep: Int32): TZuXmlNode; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 110{$ELSE}'zuxml' name 'ZuXmlAddNodeExisting'{$ENDIF};
function ZuXmlRemoveNode(hDocument: TZuXmlDocument; hNode: TZuXmlNode): Int32; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 111{$ELSE}'zuxml' name 'ZuXmlRemoveNode'{$ENDIF};
function ZuXmlSetNodeTextContentW(hDocument: TZuXmlDocument; hNode: TZuXmlNode; szText: PWideChar): Int32;
    cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 711{$ELSE}'zuxml' name 'ZuXmlSetNodeTextContentW'{$ENDIF};
function ZuXmlSetNodeTextContentA(hDocument: TZuXmlDocument; hNode: TZuXmlNode; szText: PAnsiChar): Int32;
    cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 611{$ELSE}'zuxml' name 'ZuXmlSetNodeTextContentA'{$ENDIF};

{ Attributes }
function ZuXmlGetNodeAttributeCount(hDocument: TZuXmlDocument; hNode: TZuXmlNode): Int32; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 127{$ELSE}'zuxml' name 'ZuXmlGetNodeAttributeCount'{$ENDIF};
function ZuXmlGetNodeAttributeNameW(hDocument: TZuXmlDocument; hNode: TZuXmlNode; nIndex: Int32;
    szBuffer: PWideChar; pnLength: PInt32): Int32; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 715{$ELSE}'zuxml' name 'ZuXmlGetNodeAttributeNameW'{$ENDIF};
function ZuXmlGetNodeAttributeNameA(hDocument: TZuXmlDocument; hNode: TZuXmlNode; nIndex: Int32;
    szBuffer: PAnsiChar; pnLength: PInt32): Int32; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 615{$ELSE}'zuxml' name 'ZuXmlGetNodeAttributeNameA'{$ENDIF};
function ZuXmlGetNodeAttributeValueIndexW(hDocument: TZuXmlDocument; hNode: TZuXmlNode; nIndex: Int32;
    szBuffer: PWideChar; pnLength: PInt32): Int32; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 716{$ELSE}'zuxml' name 'ZuXmlGetNodeAttributeValueIndexW'{$ENDIF};
function ZuXmlGetNodeAttributeValueIndexA(hDocument: TZuXmlDocument; hNode: TZuXmlNode; nIndex: Int32;
    szBuffer: PAnsiChar; pnLength: PInt32): Int32; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 616{$ELSE}'zuxml' name 'ZuXmlGetNodeAttributeValueIndexA'{$ENDIF};
function ZuXmlGetNodeAttributeValueNameW(hDocument: TZuXmlDocument; hNode: TZuXmlNode;
    szName, szBuffer: PWideChar; pnLength: PInt32): Int32; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 717{$ELSE}'zuxml' name 'ZuXmlGetNodeAttributeValueNameW'{$ENDIF};
function ZuXmlGetNodeAttributeValueNameA(hDocument: TZuXmlDocument; hNode: TZuXmlNode;
    szName, szBuffer: PAnsiChar; pnLength: PInt32): Int32; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 617{$ELSE}'zuxml' name 'ZuXmlGetNodeAttributeValueNameA'{$ENDIF};
function ZuXmlAddNodeAttributeW(hDocument: TZuXmlDocument; hNode: TZuXmlNode;
    szName, szValue: PWideChar): Int32; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 713{$ELSE}'zuxml' name 'ZuXmlAddNodeAttributeW'{$ENDIF};
function ZuXmlAddNodeAttributeA(hDocument: TZuXmlDocument; hNode: TZuXmlNode;
    szName, szValue: PAnsiChar): Int32; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 613{$ELSE}'zuxml' name 'ZuXmlAddNodeAttributeA'{$ENDIF};
function ZuXmlSetNodeAttributeValueW(hDocument: TZuXmlDocument; hNode: TZuXmlNode;
    szName, szValue: PWideChar): Int32; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 718{$ELSE}'zuxml' name 'ZuXmlSetNodeAttributeValueW'{$ENDIF};
function ZuXmlSetNodeAttributeValueA(hDocument: TZuXmlDocument; hNode: TZuXmlNode;
    szName, szValue: PAnsiChar): Int32; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 618{$ELSE}'zuxml' name 'ZuXmlSetNodeAttributeValueA'{$ENDIF};
function ZuXmlRemoveAttributeIndex(hDocument: TZuXmlDocument; hNode: TZuXmlNode; nIndex: Int32): Int32;
    cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 125{$ELSE}'zuxml' name 'ZuXmlRemoveAttributeIndex'{$ENDIF};
function ZuXmlRemoveAttributeNameW(hDocument: TZuXmlDocument; hNode: TZuXmlNode; szName: PWideChar): Int32;
    cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 714{$ELSE}'zuxml' name 'ZuXmlRemoveAttributeNameW'{$ENDIF};
function ZuXmlRemoveAttributeNameA(hDocument: TZuXmlDocument; hNode: TZuXmlNode; szName: PAnsiChar): Int32;
    cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 614{$ELSE}'zuxml' name 'ZuXmlRemoveAttributeNameA'{$ENDIF};

{ SAX2 streaming }
function ZuXmlCreateSax2Parser(pContext: Pointer): TZuXmlSax2Parser; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 137{$ELSE}'zuxml' name 'ZuXmlCreateSax2Parser'{$ENDIF};
function ZuXmlReleaseSax2Parser(hParser: TZuXmlSax2Parser): Int32; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 138{$ELSE}'zuxml' name 'ZuXmlReleaseSax2Parser'{$ENDIF};
function ZuXmlSetSax2ParserCallbacksW(hParser: TZuXmlSax2Parser;
    pStartDocument: TZuXmlSax2StartDocumentCallback; pEndDocument: TZuXmlSax2EndDocumentCallback;
    pStartElement: TZuXmlSax2StartElementCallbackW; pAttribute: TZuXmlSax2AttributeCallbackW;
    pAttributesDone: TZuXmlSax2AttributesDoneCallback; pEndElement: TZuXmlSax2EndElementCallbackW;
    pComment: TZuXmlSax2CommentCallbackW; pDiagnostic: TZuXmlSax2DiagnosticCallbackW): Int32; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 720{$ELSE}'zuxml' name 'ZuXmlSetSax2ParserCallbacksW'{$ENDIF};
function ZuXmlSetSax2ParserCallbacksA(hParser: TZuXmlSax2Parser;
    pStartDocument: TZuXmlSax2StartDocumentCallback; pEndDocument: TZuXmlSax2EndDocumentCallback;
    pStartElement: TZuXmlSax2StartElementCallbackA; pAttribute: TZuXmlSax2AttributeCallbackA;
    pAttributesDone: TZuXmlSax2AttributesDoneCallback; pEndElement: TZuXmlSax2EndElementCallbackA;
    pComment: TZuXmlSax2CommentCallbackA; pDiagnostic: TZuXmlSax2DiagnosticCallbackA): Int32; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 620{$ELSE}'zuxml' name 'ZuXmlSetSax2ParserCallbacksA'{$ENDIF};
function ZuXmlSax2LoadFromFileW(hParser: TZuXmlSax2Parser; szFileName: PWideChar; nMode: Int32): Int32;
    cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 721{$ELSE}'zuxml' name 'ZuXmlSax2LoadFromFileW'{$ENDIF};
function ZuXmlSax2LoadFromFileA(hParser: TZuXmlSax2Parser; szFileName: PAnsiChar; nMode: Int32): Int32;
    cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 621{$ELSE}'zuxml' name 'ZuXmlSax2LoadFromFileA'{$ENDIF};
procedure ZuXmlSax2StopLoadFromFile(hParser: TZuXmlSax2Parser); cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 140{$ELSE}'zuxml' name 'ZuXmlSax2StopLoadFromFile'{$ENDIF};
function ZuXmlGetSax2CurrentLocation(hParser: TZuXmlSax2Parser; pnLine, pnColumn: PUInt64): Int32; cdecl;
  external {$IFDEF MSWINDOWS}'ZUXML.dll' index 139{$ELSE}'zuxml' name 'ZuXmlGetSax2CurrentLocation'{$ENDIF};

implementation

end.
